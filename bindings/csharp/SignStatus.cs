// How the sign is.
using System;
using System.Collections.Generic;
using System.Globalization;
using System.Linq;
using System.Runtime.InteropServices;
using System.Text;

namespace Vxsign
{
    /// <summary>How a sign is, under the names of "vxctl status --json". What it does not tell is null.</summary>
    public sealed class Status
    {
        /// <summary>bad-pixels, hot-tiles, door-open, no-power, dark-face, overheated; none when all is well.</summary>
        public IReadOnlyList<string> State { get; internal set; }

        public byte StateCode { get; internal set; }
        public Measured Measured { get; internal set; }
        public byte[] Beacon { get; internal set; }
        public string Playing { get; internal set; }

        /// <summary>Width and height in pixels.</summary>
        public (int Width, int Height)? Face { get; internal set; }

        public int? Colours { get; internal set; }

        /// <summary>Of full light.</summary>
        public int? LightEighths { get; internal set; }

        /// <summary>Whether the light was set, rather than goes by the hour.</summary>
        public bool? LightFixed { get; internal set; }

        public bool? Power { get; internal set; }
        public DateTime? Clock { get; internal set; }
        public IReadOnlyList<Drive> Drives { get; internal set; }
        public IReadOnlyList<Warning> Warnings { get; internal set; }
    }

    /// <summary>Degrees Celsius, and percent.</summary>
    public sealed class Measured
    {
        public int InsideC { get; internal set; }
        public int OutsideC { get; internal set; }
        public int HottestTileC { get; internal set; }
        public int HumidityPercent { get; internal set; }
    }

    /// <summary>A drive of the sign.</summary>
    public sealed class Drive
    {
        public char Letter { get; internal set; }
        public ulong TotalBytes { get; internal set; }
        public ulong FreeBytes { get; internal set; }
    }

    /// <summary>What the sign warns of.</summary>
    public sealed class Warning
    {
        /// <summary>main board, tile 3,0, pixels or signals.</summary>
        public string Where { get; internal set; }

        public string What { get; internal set; }
        public string Value { get; internal set; }
        public string Time { get; internal set; }
    }

    public sealed partial class Sign
    {
        private static readonly string[] StateNames = {"bad-pixels", "hot-tiles", "door-open", "no-power", "dark-face"};

        /// <summary>How the sign is, in one look.</summary>
        public Status Status() => Run(() => {
            Status status = ReadRecord();
            FaceState face = ReadFace();
            status.Face = face.Size;
            status.Colours = face.Colours;
            status.LightEighths = face.Light;
            status.LightFixed = face.Light == null ? (bool?)null : face.IsLightFixed;
            status.Power = IsDone(Raw.vxGetPowerState(out byte ordered, out byte present)) ? present != 0 : (bool?)null;
            status.Clock = IsDone(ReadClock(out DateTime? clock)) ? clock : null;
            status.Drives = "CDEFG".Select(ReadDrive).Where(drive => drive != null).ToList();
            status.Warnings = ReadWarnings();
            return status;
        });

        /// <summary>How bright the face is in eighths, null where the sign does not tell; or sets it to a level.</summary>
        public int? Light(int? level = null)
        {
            byte wanted = (byte)Within(level ?? 0, 0, byte.MaxValue, nameof(level));
            return Run(() => {
                if (level == null)
                    return ReadFace().Light;
                Check(Raw.vxBrightAdjust(wanted));
                return level;
            });
        }

        /// <summary>Whether the face has power; or switches it.</summary>
        public bool Power(bool? on = null) => Run(() => {
            if (on != null)
                Check(Raw.vxPowerOnOff((sbyte)(on.Value ? 1 : 0)));
            byte present = (byte)(on == true ? 1 : 0);
            if (on == null)
                Check(Raw.vxGetPowerState(out byte ordered, out present));
            return present != 0;
        });

        /// <summary>The sign's clock, which tells no seconds; or sets it.</summary>
        public DateTime Clock(DateTime? time = null) => Run(() => {
            if (time is DateTime to) {
                Check(Raw.vxAjustLEDTimeEx((ushort)to.Year, (byte)to.Month, (byte)to.Day, (byte)to.Hour, (byte)to.Minute,
                                           (byte)to.Second, (byte)to.DayOfWeek, 0));
                return to;
            }
            Check(ReadClock(out DateTime? clock));
            return clock ?? throw new SignException(Raw.VX_FAILED_OPERATION, "the sign tells a time that does not exist");
        });

        private static uint ReadClock(out DateTime? clock)
        {
            uint result = Raw.vxReadLEDTime(out ushort year, out byte month, out byte day, out byte hour, out byte minute,
                                            out byte sixth, out byte weekday, out byte mark);
            clock = result == Raw.VX_OK ? SignTime(year, month, day, hour, minute, 0) : null;
            return result;
        }

        private static Status ReadRecord()
        {
            Status status = null;
            VxOnStatusInfo take = (uint user, ref vxStatusRecord record, IntPtr beacon, IntPtr message) => {
                status = new Status {
                    State = StatesOf(record.Mode), StateCode = record.Mode, Beacon = new byte[8],
                    Measured = new Measured {InsideC = (sbyte)record.Value0, OutsideC = (sbyte)record.Value1,
                        HottestTileC = (sbyte)record.Value2, HumidityPercent = record.Value3}
                };
                Marshal.Copy(beacon, status.Beacon, 0, 8);
                string playing = Texts.At(message);
                status.Playing = playing == "" ? null : playing;
                return Raw.VX_OK;
            };
            Check(Raw.vxReadStatusInfo("", 0, 0, take, 0, 0, 0));
            return status;
        }

        private static IReadOnlyList<string> StatesOf(byte mode) => mode == Raw.VX_MODE_BY_STATISTICS
            ? new[] {"overheated"}
            : StateNames.Where((name, bit) => (mode >> bit & 1) != 0).ToArray();

        private sealed class FaceState
        {
            internal (int, int)? Size;
            internal int? Colours;
            internal int? Light;
            internal bool IsLightFixed;
            internal string[] Shows; // what is to be seen; null when the sign does not tell
        }

        private static FaceState ReadFace()
        {
            var face = new FaceState();
            var settings = new byte[16];
            if (IsDone(Raw.vxReadSystemSet(settings)) && settings.Take(4).Any(side => side != 0))
                face.Size = ((int)BitConverter.ToUInt16(settings, 0), (int)BitConverter.ToUInt16(settings, 2));
            var about = new byte[1024];
            if (!IsDone(Raw.vxReadSystemInfo(about, (uint)about.Length, out uint length)))
                return face;
            string lines = Encoding.ASCII.GetString(about, 0, (int)Math.Min(length, about.Length));
            foreach (string[] words in lines.Split('\n').Select(line => line.Trim().Split(' ')))
                TakeLine(words, face);
            return face;
        }

        private static int? NumberAt(string[] words, int at) => words.Length > at ? (int?)Number(words[at]) : null;

        // A line such as "light 4 fixed". Of others nothing is known.
        private static void TakeLine(string[] words, FaceState face)
        {
            if (words[0] == "colours")
                face.Colours = NumberAt(words, 1);
            if (words[0] == "light") {
                face.Light = NumberAt(words, 1);
                face.IsLightFixed = words.Contains("fixed");
            }
            if (words[0] == "shows")
                face.Shows = words.Skip(1).ToArray();
        }

        // Free and total space are in units, whose size stands behind them.
        private static Drive ReadDrive(char letter)
        {
            const uint usualUnit = 1024;
            uint[] total = {0}, free = {0};
            var further = new byte[12];
            if (!IsDone(Raw.vxGetDriveInfo((byte)letter, total, free, further)))
                return null;
            uint unit = BitConverter.ToUInt32(further, 0);
            unit = unit == 0 ? usualUnit : unit;
            return new Drive {Letter = letter, TotalBytes = (ulong)total[0] * unit, FreeBytes = (ulong)free[0] * unit};
        }

        // None for a sign that has no report.
        private static unsafe List<Warning> ReadWarnings()
        {
            var warnings = new List<Warning>();
            VxOnWaringReport take = (ref vxWaringReportRow row) => {
                fixed (vxWaringReportRow* at = &row)
                    warnings.Add(new Warning {Where = PlaceOf(row), What = Texts.Field(at->Name, 64),
                        Value = Texts.Field(at->Value, 256), Time = Texts.Field(at->Time, 66)});
                return Raw.VX_OK;
            };
            uint result = Raw.vxReadWaringReport(take);
            if (result != Raw.VX_FILE_NOT_EXISTS)
                IsDone(result);
            return warnings;
        }

        private static string PlaceOf(vxWaringReportRow row)
        {
            switch (row.Kind) {
            case (byte)Raw.VX_WARING_TILE:
                bool isNowhere = row.X == Raw.VX_WARING_NO_POSITION && row.Y == Raw.VX_WARING_NO_POSITION;
                return isNowhere ? "tile" : $"tile {row.X},{row.Y}";
            case (byte)Raw.VX_WARING_PIXELS:
                return "pixels";
            case (byte)Raw.VX_WARING_SIGNALS:
                return "signals";
            default:
                return "main board";
            }
        }
    }
}
