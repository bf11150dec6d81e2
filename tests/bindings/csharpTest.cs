// The C# binding against virtual signs: each task once, each kind of failure once, threads, cancelling, structures.
using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using System.Linq;
using System.Net;
using System.Net.Sockets;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;
using System.Threading.Tasks;
using Vxsign;

static class CsharpTest
{
    static int failures;
    static readonly string Work = Directory.CreateDirectory(Path.Combine(Path.GetTempPath(), "cs-" + Guid.NewGuid())).FullName;

    static void Expect(bool isSo, string what)
    {
        if (isSo)
            return;
        Console.Error.WriteLine("FAILED: " + what);
        ++failures;
    }

    static void Same<Value>(Value wanted, Value found, string what) =>
        Expect(Equals(wanted, found), $"{what} is '{found}', not '{wanted}'");

    static void Throws<Kind>(string part, Action act) where Kind : Exception
    {
        try {
            act();
            Expect(false, $"no {typeof(Kind).Name}: {part}");
        } catch (Kind error) {
            Expect(error.Message.Contains(part), $"'{error.Message}' does not say '{part}'");
        } catch (Exception other) {
            Expect(false, $"{other.GetType().Name} in place of {typeof(Kind).Name}: {other}");
        }
    }

    static string Local(string name, string text)
    {
        string path = Path.Combine(Work, name);
        File.WriteAllText(path, text, Encoding.ASCII);
        return path;
    }

    static byte[] OnSign(VirtualSign there, string path) => File.ReadAllBytes(Path.Combine(there.Folder, path));

    static bool Contains(byte[] all, params byte[] part) =>
        Enumerable.Range(0, all.Length - part.Length + 1).Any(at => all.Skip(at).Take(part.Length).SequenceEqual(part));

    // As the compiler lays them out, and as the library reads and writes them.
    static unsafe void Structures()
    {
        Same(35, Raw.Sizes.Count, "structures");
        foreach (KeyValuePair<Type, int> size in Raw.Sizes)
            Same(size.Value, Marshal.SizeOf(size.Key), size.Key.Name);
        var config = new vxApiConfig {port = 9521, timeoutMs = 1234, dataSize = 77};
        config.host[0] = (byte)'1';
        Same(Raw.VX_OK, Raw.vxInitAPI(ref config), "vxInitAPI");
        var record = (byte*)Raw.vxTLSGet((int)Raw.VX_RECORD_CONFIGURATION);
        Same(9521, *(int*)(record + 56), "port");
        Same((byte)'1', record[8], "host");
        Same(77, *(ushort*)(record + 100), "dataSize");
        int functions = typeof(Raw).GetMethods().Count(method => method.IsStatic);
        Same(361, functions, "functions");
        foreach (var method in typeof(Raw).GetMethods().Where(method => method.IsStatic))
            Marshal.Prelink(method); // each is there, and its arguments can be handed over
    }

    static void Content(Sign sign, VirtualSign there)
    {
        Same(3, new uint[] {sign.Ping().First, sign.Ping().Second, sign.Ping().Third}.Length, "numbers");
        sign.Show("HELLO\n42", "#FF8000", "0", "1", 7);
        Expect(Contains(OnSign(there, "F/T/QMSG.Nmg"), Encoding.ASCII.GetBytes("\x1A" + "0")), "font");
        Expect(Contains(OnSign(there, "F/T/QMSG.Nmg"), 0x1C, 0x2F, 0xFF, 0x80, 0, (byte)'\n', (byte)'I', (byte)'1'), "colour");
        Expect(Contains(OnSign(there, "F/T/QMSG.Nmg"), Encoding.ASCII.GetBytes("HELLO\r42")), "text");
        Same("F:\\T\\QMSG.Nmg", sign.Playing(), "playing");
        string logo = Path.Combine(Examples, "logo.bmp");
        sign.Picture(logo, stay: 3);
        Expect(Contains(OnSign(there, "F/T/PMSG.Nmg"), File.ReadAllBytes(logo).Take(64).ToArray()), "picture");
        sign.Files(new[] {logo, Path.Combine(Examples, "hello.nmg")}, "3", 4);
        Expect(OnSign(there, "F/P/logo.bmp").SequenceEqual(File.ReadAllBytes(logo)), "files");
        sign.Play("next");
        sign.Play("F:/P/logo.bmp");
        Same("F:\\P\\logo.bmp", sign.Playing(), "played");
        sign.Play("again");
        sign.Playlist(new[] {logo}, 9);
        Expect(sign.FetchPlaylist(Path.Combine(Work, "fetched")).SequenceEqual(new[] {"logo.bmp"}), "names");
        Expect(File.ReadAllBytes(Path.Combine(Work, "fetched/logo.bmp")).SequenceEqual(File.ReadAllBytes(logo)), "fetched");
        sign.Playlist(new[] {logo}, index: 3);
    }

    static void FilesOfSign(VirtualSign there)
    {
        var told = new List<int>();
        var sign = new Sign(there.Url, onProgress: told.Add);
        string large = Local("large.bin", new string('x', 20000)), back = Path.Combine(Work, "back.bin");
        sign.Put(large, "D:/T/");
        sign.Get("D:/T/large.bin", back);
        Expect(File.ReadAllBytes(large).SequenceEqual(File.ReadAllBytes(back)), "file");
        Expect(told.Any(percent => percent > 0 && percent < 100) && told.Max() == 100 && told.Min() >= 0, "progress " + string.Join(" ", told));
        sign.Mkdir("D:/T/NEW");
        sign.Mv("D:/T/large.bin", "D:/T/small.bin");
        sign.Mv("D:/T/small.bin", "D:/T/NEW/");
        Entry folder = sign.Ls("D:/T").Single(entry => entry.Name == "NEW"), file = sign.Ls("D:/T/NEW").Single();
        Same("True False small.bin 20000", $"{folder.IsFolder} {file.IsFolder} {file.Name} {file.Size}", "entries");
        Expect(Math.Abs((DateTime.UtcNow.AddHours(5.5) - file.Changed.Value).TotalHours) < 1, $"{file.Changed}");
        sign.Rm("D:/T/NEW/small.bin");
        Same(0, sign.Ls("D:/T/NEW").Count, "entries left");
        Throws<SignException>("File", () => sign.Get("D:/T/NONE.NMG", back));
        Same(20000L, new FileInfo(back).Length, "what a failure leaves");
    }

    static void State(Sign sign, VirtualSign there)
    {
        Same(4, sign.Light(4), "level");
        Same(4, sign.Light(), "light");
        Same(false, sign.Power(false), "power");
        Expect(sign.Restore().SequenceEqual(new[] {"off"}), "restored");
        Same(true, sign.Power(), "power");
        sign.Clock(new DateTime(2031, 5, 6, 7, 8, 9));
        Same(new DateTime(2031, 5, 6, 7, 8, 0), sign.Clock(), "clock");
        sign.Blank();
        Status status = sign.Status();
        Same("(64, 16)", status.Face.ToString(), "face");
        Same("bad-pixels dark-face", string.Join(" ", status.State), "state");
        Same("4 True True 8", $"{status.LightEighths} {status.LightFixed} {status.Power} {status.Beacon.Length}", "status");
        Same(2031, status.Clock.Value.Year, "clock");
        Same("CDEF", string.Concat(status.Drives.Select(drive => drive.Letter)), "drives");
        Expect(status.Drives.All(drive => drive.FreeBytes > 0 && drive.FreeBytes <= drive.TotalBytes), "spaces");
        Expect(status.Warnings.Any(warning => warning.Where == "pixels" && warning.Value == "Num=1"), "warnings");
        Expect(status.Measured.HumidityPercent <= 100 && status.Measured.InsideC > -60, "measured");
        sign.Unblank();
        PixelRow pixel = sign.Pixels().Single();
        Same("3 4 pixel", $"{pixel.X} {pixel.Y} {pixel.Kind}", "pixel");
        Same(pixel.Status, sign.Pixels("last").Single().Status, "pixel of the last check");
        for (int i = 0; i < 12; ++i)
            sign.Unblank();
        Table log = sign.Logs("system", 11);
        Same("11 time,type,operation,user,outcome", $"{log.Rows.Count} {string.Join(",", log.Columns)}", "log");
        Same("OK", log.Rows[0][4], "outcome");
        Same("pixel came", string.Join(" ", sign.Logs("event").Rows[0].Skip(1).Take(2)), "event");
        byte first = 0, second = 0;
        sign.Call(() => Raw.vxGetPowerState(out first, out second));
        Same(1, (int)second, "raw function");
    }

    static void Devices()
    {
        using (var there = new VirtualSign(options: "--login admin:1234 --modbus 0 --serial")) {
            var sign = new Sign(there.Url, encoding: "gbk");
            Throws<SignException>("login", () => sign.Ping());
            sign.Login("admin", "1234");
            sign.Show("港 4");
            Expect(Contains(OnSign(there, "F/T/QMSG.Nmg"), 0xB8, 0xDB, (byte)' ', (byte)'4'), "GBK");
            sign.Logout();
            Throws<SignException>("login", () => sign.Ping());
            var device = new Sign("udp://" + there.Place("modbus"));
            Same(77, device.Modbus("vsls", 5, 3, 1, 77), "written");
            Same(77, device.Modbus("VSLS", 5, 3, 1), "register");
            Throws<SignException>("", () => device.Modbus("LC", 5, 99));
            new Sign("serial:" + there.Place("serial") + "@115200").Login("admin", "1234");
            Throws<SignException>("assword", () => sign.Login("admin", "1"));
        }
        using (var there = new VirtualSign(options: "--bootloader")) {
            var sign = new Sign("serial:" + there.Place("serial") + "@115200", timeoutMs: 200);
            sign.Upgrade(Local("board.bin", new string('f', 1000)));
            Throws<SignException>("does not ask", () => new Sign(there.Url, timeoutMs: 50, retries: 1)
                .Upgrade(Path.Combine(Work, "board.bin")));
        }
    }

    static void Refusals(Sign sign)
    {
        var rows = new (string Part, Action Act)[] {
            ("names no sign: it is none of", () => new Sign("ftp://h")),
            ("the port is", () => new Sign("udp://h:0")),
            ("999.1.1.1 is no IPv4 address", () => new Sign("udp://999.1.1.1")),
            ("no IPv4 address for no.such.host.invalid", () => new Sign("tcp://no.such.host.invalid")),
            ("a serial line needs", () => new Sign("serial:@9600")),
            ("15 bytes", () => new Sign("serial:/dev/serial/by-id/long")),
            ("timeoutMs", () => new Sign(timeoutMs: 49)),
            ("'kgb' is no encoding", () => new Sign(encoding: "kgb")),
            ("'utf-7' is no encoding for a sign", () => new Sign(encoding: "utf-7")),
            ("'utf-16' is no encoding for a sign", () => new Sign(encoding: "utf-16")),
            ("character 0", () => sign.Show("a\0b")),
            ("text is empty", () => sign.Show("")),
            ("utf-8 has no (U+D800), at character 2", () => sign.Show("a\uD800")),
            ("gbk has no 'ß' (U+00DF), at character 2", () => new Sign(encoding: "gbk").Show("aß")),
            ("shift_jis has no '😀' (U+1F600), at character 1", () => new Sign(encoding: "shift_jis").Show("😀")),
            ("iso-8859-2 has no 'ñ' (U+00F1)", () => new Sign(encoding: "iso-8859-2").Rm("D:/T/ñ")),
            ("windows-1251 has no", () => new Sign(encoding: "windows-1251").Show("ł")),
            ("'purplish' is no colour", () => sign.Show("a", "purplish")),
            ("'/' is no font", () => sign.Show("a", font: "/")),
            ("stay", () => sign.Show("a", stay: 10000)),
            ("255 bytes", () => sign.Rm(new string('x', 256))),
            ("'D:/T/much-too-long.nmg' cannot play", () => sign.Play("D:/T/much-too-long.nmg")),
            ("0 files", () => sign.Files(new string[0])),
            ("two files are named", () => sign.Playlist(new[] {Local("a", ""), Local("a", "")})),
            ("'car' is no log", () => sign.Logs("car")),
            ("'new' is no source", () => sign.Pixels("new")),
            ("'XY' is no class", () => sign.Modbus("XY", 1, 1)),
            ("section", () => sign.Modbus("LC", 1, 1, 256)),
            ("text", () => sign.Show(null)),
            ("function", () => sign.Call(null)),
        };
        foreach (var row in rows)
            Throws<ArgumentException>(row.Part, row.Act);
        Throws<FileNotFoundException>("missing.bmp", () => sign.Picture("missing.bmp"));
        Throws<FileNotFoundException>("", () => sign.Put("/", "D:/T/X"));
        try {
            new Sign("udp://127.0.0.1:1", timeoutMs: 50, retries: 1).Ping();
        } catch (SignException error) {
            Same($"{Raw.VX_COMMUNICATION} Communication Error!", $"{error.Code} {error.Text}", "error");
            Expect(error.Advice.Length > 10 && error.Message.Contains(error.Advice), "advice " + error.Message);
        }
    }

    // A sign that never answers: its calls end by Cancel, a later one runs.
    static void Cancelling()
    {
        using (var silent = new UdpClient(new IPEndPoint(IPAddress.Loopback, 0))) {
            var sign = new Sign("udp://127.0.0.1:" + ((IPEndPoint)silent.Client.LocalEndPoint).Port, 60000, 100);
            for (int time = 0; time < 2; ++time) {
                var began = new TaskCompletionSource<bool>();
                silent.ReceiveAsync().ContinueWith(got => began.SetResult(true));
                Task call = Task.Run(() => Throws<SignException>("Operation Abort!", () => sign.Ls("D:/T")));
                Expect(began.Task.Wait(20000), "nothing was sent");
                var watch = Stopwatch.StartNew();
                sign.Cancel();
                Expect(call.Wait(20000) && watch.ElapsedMilliseconds < 10000, "the call goes on");
                while (silent.Available > 0) {
                    IPEndPoint from = null;
                    silent.Receive(ref from);
                }
            }
        }
    }

    // Any thread, several signs on each, and what a callback throws.
    static void Threads(VirtualSign one, VirtualSign other)
    {
        var signs = new[] {new Sign(one.Url), new Sign(other.Url)};
        Parallel.For(0, 64, i => {
            var (sign, wanted) = (signs[i % 2], i % 2 == 0 ? 64 : 48);
            Same(wanted, sign.Status().Face.Value.Width, "width");
            GC.Collect();
        });
        string large = Local("thread.bin", new string('x', 5000));
        Sign again = null;
        again = new Sign(one.Url, onProgress: percent => again.Ping());
        Throws<InvalidOperationException>("call nothing", () => again.Put(large, "D:/T/T.BIN"));
        Expect(again.Ping().Third >= 0, "the sign takes no call any more");
    }

    static string Examples => Environment.GetEnvironmentVariable("EXAMPLES");

    static int Main(string[] arguments)
    {
        if (arguments.Length > 0) { // without the library, or with an old one
            Throws<LibraryException>(arguments[0], () => new Sign());
            return failures == 0 ? 0 : 1;
        }
        Structures();
        using (var there = new VirtualSign(64, 16, "--bad 3,4,red"))
        using (var other = new VirtualSign(48, 16)) {
            var sign = new Sign(there.Url);
            Content(sign, there);
            FilesOfSign(there);
            State(new Sign(there.Url.Replace("udp", "tcp")), there);
            Refusals(sign);
            Threads(there, other);
        }
        Devices();
        Cancelling();
        Directory.Delete(Work, true);
        return failures == 0 ? 0 : 1;
    }
}
