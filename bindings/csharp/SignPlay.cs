// What the sign plays: its play list, and the file whose turn it is.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;
using System.Xml;

namespace Vxsign
{
    public sealed partial class Sign
    {
        private static readonly Dictionary<string, Func<uint>> Steps = new Dictionary<string, Func<uint>> {
            ["next"] = Raw.vxPlayNext,         ["previous"] = Raw.vxPlayPrevious, ["pause"] = Raw.vxPlayPause,
            ["continue"] = Raw.vxPlayContinue, ["replay"] = Raw.vxReplayList,     ["again"] = Raw.vxReplayCurrFile,
        };

        /// <summary>The file that plays; null when nothing plays.</summary>
        public string Playing() => Run(() => PlayingFile());

        /// <summary>
        /// "next", "previous", "pause", "continue", "replay" (the list from its start), "again" (the file), or the name of
        /// a file, which plays ahead of all others: "HELLO.NMG" or "D:/T/HELLO.NMG".
        /// </summary>
        public void Play(string action)
        {
            Texts.Check(action);
            Func<uint> step = Steps.TryGetValue(action, out Func<uint> known) ? known : PlayFile(action);
            Run(() => Check(step()));
        }

        /// <summary>
        /// Makes a play list of local files and sends it with them. It plays at once, or goes to the numbered place. The
        /// thread's own play list makes way for it.
        /// </summary>
        public void Playlist(IEnumerable<string> paths, int stay = 5, int? index = null)
        {
            List<string> files = LocalFiles(paths, 255);
            ushort seconds = (ushort)Within(stay, 0, ushort.MaxValue, nameof(stay));
            byte place = (byte)Within(index ?? 0, 0, byte.MaxValue, nameof(index));
            string twice = files.GroupBy(Path.GetFileName).FirstOrDefault(same => same.Count() > 1)?.Key;
            if (twice != null)
                throw new ArgumentException($"two files are named '{twice}'");
            Run(() => {
                using (var folder = new TempFolder()) {
                    char drive = DriveForContent();
                    WriteList(folder, files, seconds, drive);
                    Check(Raw.vxPLInit(folder.Path, "playlist.xml"));
                    Check(index == null ? Raw.vxPLSendToLED(1) : Raw.vxPLSpeSendToLED(place, 1));
                    CheckArrival(folder, files, drive);
                }
            });
        }

        /// <summary>
        /// Fetches the play list of the sign and its files into a local folder, where playlist.xml names them in their
        /// order. Gives their names.
        /// </summary>
        public IReadOnlyList<string> FetchPlaylist(string folder)
        {
            Texts.Check(folder);
            Directory.CreateDirectory(folder);
            return Run(() => {
                Check(Raw.vxPLInit(folder, "playlist.xml"));
                Check(Raw.vxPLReadFromLED(1));
                Check(Raw.vxPLSave());
                List<(string Name, byte[] Path)> files = FilesAt("/");
                foreach (var file in files)
                    CheckFetched(Path.Combine(folder, file.Name), file.Path);
                return files.Select(file => file.Name).ToList();
            });
        }

        private string PlayingFile()
        {
            var name = new byte[256];
            uint result = Raw.vxGetPlayingFileName(name, (uint)name.Length);
            if (result != Raw.VX_NOTHING_PLAYS)
                Check(result);
            string playing = result == Raw.VX_OK ? text.Decode(name) : "";
            return playing == "" ? null : playing;
        }

        private Func<uint> PlayFile(string path)
        {
            string there = Texts.SignPath(path);
            bool isPlaced = there.Length > 5 && there[1] == ':' && there[2] == '\\' && there[4] == '\\';
            byte[] name = text.Terminated(isPlaced ? there.Substring(5) : there);
            if (name.Length < 2 || name.Length > 13 || name.Any(c => c == '\\' || c == '/' || c == ':'))
                throw new ArgumentException($"'{path}' cannot play: a name of up to 12 characters, or with a drive and a " +
                                            "folder of one letter, as D:/T/A.NMG");
            byte drive = isPlaced ? (byte)char.ToUpperInvariant(there[0]) : (byte)0;
            byte folder = isPlaced ? (byte)char.ToUpperInvariant(there[3]) : (byte)0;
            return () => Raw.vxPlayPriority(drive, folder, name);
        }

        // The files beside each other, and the list as the library reads it.
        private static void WriteList(TempFolder folder, List<string> files, ushort seconds, char drive)
        {
            using (XmlWriter xml = XmlWriter.Create(folder.File("playlist.xml"))) {
                xml.WriteStartElement("vxPlayList");
                Write(xml, ("Version", 1), ("Count", files.Count));
                foreach (string local in files) {
                    string name = Path.GetFileName(local);
                    File.Copy(local, folder.File(name));
                    xml.WriteStartElement("Item");
                    Write(xml, ("groupName", ""), ("playType", 0), ("itemType", 0), ("parentIndex", 0), ("fileCount", 1));
                    xml.WriteStartElement("File");
                    Write(xml, ("fileName", name), ("schCount", 0), ("playTimes", 1), ("Drive", (int)'D'),
                          ("Type", SignPlace.Of(folder.File(name), drive).Folder), ("PicStaySec", seconds),
                          ("PicInMode", 0), ("PicOutMode", 0), ("pcFileName", local));
                    xml.WriteEndElement();
                    xml.WriteEndElement();
                }
                xml.WriteEndElement();
            }
        }

        private static void Write(XmlWriter xml, params (string Name, object Value)[] elements)
        {
            foreach (var element in elements)
                xml.WriteElementString(element.Name, element.Value.ToString());
        }

        // The library passes over a file that does not arrive, and the sign's list of files names it all the same.
        // Without that list the next sending sends all.
        private void CheckArrival(TempFolder folder, List<string> files, char drive)
        {
            foreach (string name in files.Select(Path.GetFileName)) {
                if (failed == "" && AnnouncedSize(SignPlace.Of(folder.File(name), drive).Path.TakeWhile(c => c != 0)
                    .Concat(new byte[] {0}).ToArray()) == SentSize(folder.File(name)))
                    continue;
                IsDone(Raw.vxDelete(Texts.Ascii("D:\\FILELSTI.LST")));
                throw new SignException(Raw.VX_FAILED_OPERATION,
                    $"'{name}' or a file beside it is not whole on the sign" + (failed == "" ? "" : ": " + failed));
            }
        }

        // A wrapped message goes over as the file that the library has unwrapped beside it.
        private static long SentSize(string local) =>
            new FileInfo(File.Exists(local + ".tmp") ? local + ".tmp" : local).Length;

        // The library passes over a file that does not come. A part of it goes: it would not be fetched again.
        private void CheckFetched(string local, byte[] there)
        {
            long got = File.Exists(local) ? new FileInfo(local).Length : 0;
            uint? announced = AnnouncedSize(there);
            if (announced == got)
                return;
            File.Delete(local);
            throw new SignException(Raw.VX_FAILED_OPERATION,
                                    $"{got} bytes of {announced ?? 0} came of '{Path.GetFileName(local)}'");
        }

        // The files at a level of the thread's play list and below it, with their paths on the sign.
        private static unsafe List<(string Name, byte[] Path)> FilesAt(string level)
        {
            var items = new VXPLAYLIST_ITEM[ushort.MaxValue];
            ushort count = ushort.MaxValue; // it stays so if there is no such level
            Check(Raw.vxPLGetItems(Encoding.UTF8.GetBytes(level + '\0'), ref count, items));
            var files = new List<(string Name, byte[] Path)>();
            for (int i = 0; count != ushort.MaxValue && i < count; ++i) {
                VXPLAYLIST_ITEM item = items[i];
                string name = Texts.Field(item.name, 256);
                if (item.kind == Raw.VX_ENTRY_GROUP)
                    files.AddRange(FilesAt(level + name + "/"));
                else if (!name.Any(c => c == '/' || c == '\\')) // one that leads elsewhere is not fetched
                    files.Add((name, PathOf(level + name)));
            }
            return files;
        }

        // As the library fetches it.
        private static byte[] PathOf(string entry)
        {
            const int longest = 31;
            var info = new VXPLAYLIST_FILE_INFO();
            Check(Raw.vxPLGetFile(Encoding.UTF8.GetBytes(entry + '\0'), ref info));
            string name = entry.Substring(entry.LastIndexOf('/') + 1);
            byte[] path = Encoding.UTF8.GetBytes($"{(char)info.Drive}:\\{(char)info.Type}\\{name}");
            return path.Take(longest).Concat(new byte[] {0}).ToArray();
        }
    }
}
