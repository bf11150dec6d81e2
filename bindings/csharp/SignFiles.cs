// Files and folders of the sign.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;

namespace Vxsign
{
    /// <summary>What is in a folder of the sign.</summary>
    public sealed class Entry
    {
        public string Name { get; internal set; }
        public bool IsFolder { get; internal set; }

        /// <summary>Bytes.</summary>
        public uint Size { get; internal set; }

        /// <summary>Null when the sign has no time for it.</summary>
        public DateTime? Changed { get; internal set; }
    }

    public sealed partial class Sign
    {
        /// <summary>A file to the sign; one whose path ends as a folder goes there under its own name.</summary>
        public void Put(string local, string path)
        {
            Texts.LocalFile(local);
            string target = Texts.SignPath(path);
            if (target.EndsWith("\\") || target.EndsWith("/") || target.EndsWith(":"))
                target += (target.EndsWith(":") ? "\\" : "") + Path.GetFileName(local);
            byte[] there = text.Path(target);
            Run(() => Check(Raw.vxWriteSpecFileEx(there, local)));
        }

        /// <summary>A file from the sign. A failure leaves a former one as it was.</summary>
        public void Get(string path, string local)
        {
            byte[] there = text.Path(path);
            Texts.Check(local);
            string part = local + ".part";
            Run(() => {
                try {
                    Receive(there, part);
                    File.Delete(local);
                    File.Move(part, local);
                } finally {
                    File.Delete(part);
                }
            });
        }

        /// <summary>What is in a folder.</summary>
        public IReadOnlyList<Entry> Ls(string path)
        {
            byte[] there = text.Path(path);
            // A sign that makes no long listing has short names.
            return Run(() => LongEntries(there) ?? ShortEntries(there));
        }

        /// <summary>Deletes a file.</summary>
        public void Rm(string path)
        {
            byte[] there = text.Path(path);
            Run(() => Check(Raw.vxDelete(there)));
        }

        /// <summary>Makes a folder.</summary>
        public void Mkdir(string path)
        {
            byte[] there = text.Path(path);
            Run(() => Check(Raw.vxCreateDir(there)));
        }

        /// <summary>Renames or moves a file; where the new path ends as a folder, into that.</summary>
        public void Mv(string from, string to)
        {
            byte[] former = text.Path(from);
            string target = Texts.SignPath(to);
            bool intoFolder = target.EndsWith("\\") || target.EndsWith("/");
            if (intoFolder && !target.EndsWith(":\\"))
                target = target.Remove(target.Length - 1);
            byte[] next = text.Path(target);
            if (former.Length + next.Length - 2 > 254)
                throw new ArgumentException("both paths together have 254 bytes at most");
            bool isRename = !intoFolder && IsSameFolder(Texts.SignPath(from), target);
            Run(() => Check(isRename ? Raw.vxRename(former, next) : Raw.vxMove(former, next)));
        }

        // A name alone is in every folder.
        private static bool IsSameFolder(string from, string to)
        {
            Func<string, string> FolderOf = path => path.Remove(path.LastIndexOfAny(new[] {'\\', '/', ':'}) + 1);
            return FolderOf(to) == "" || string.Equals(FolderOf(from), FolderOf(to), StringComparison.OrdinalIgnoreCase);
        }

        // The library takes a file for whole that is not as long as the sign announces. One that grows meanwhile, as a
        // log does, is whole with any length between two announcements.
        private void Receive(byte[] there, string local)
        {
            uint? before = AnnouncedSize(there);
            Check(Raw.vxReadSpecPathFileEx(there, local));
            long got = new FileInfo(local).Length;
            if (before == null || got == before)
                return;
            uint? after = AnnouncedSize(there);
            if (after == null || got < before || got > after)
                throw new SignException(Raw.VX_FAILED_OPERATION,
                                        $"the sign announces {after ?? before} bytes, but {got} came");
        }

        // As the reply to the request for a file's first packet has it; null when the sign refuses.
        private uint? AnnouncedSize(byte[] there)
        {
            const byte read = 1, byPath = 17;
            byte[] payload = BitConverter.GetBytes((uint)config.dataSize).Concat(new byte[] {1, 0, 0, 0}).Concat(there)
                .ToArray();
            var reply = new byte[4608];
            if (payload.Length > byte.MaxValue ||
                !IsDone(Raw.vxCustomTest(read, byPath, payload, (byte)payload.Length, null, 0, 0, null, null, reply, null)))
                return null;
            int words = reply[14]; // two have the size last, one first
            return words == 0 ? 0 : words == 2 ? BitConverter.ToUInt32(reply, 20) : BitConverter.ToUInt16(reply, 16);
        }

        private List<Entry> LongEntries(byte[] there)
        {
            const int recordSize = 276;
            var entries = new List<Entry>();
            VxOnFolderEntry take = (entry, user) => {
                var record = new byte[recordSize];
                Marshal.Copy(entry, record, 0, recordSize);
                Add(entries, text.Decode(record, 0, 260), record[268], BitConverter.ToUInt32(record, 260),
                    BitConverter.ToUInt16(record, 264), BitConverter.ToUInt16(record, 266));
                return Raw.VX_OK;
            };
            return IsDone(Raw.vxLstLongFolderCB(there, take, IntPtr.Zero)) ? entries : null;
        }

        // Page after page, until the sign has no more or has told as many as there are.
        private List<Entry> ShortEntries(byte[] there)
        {
            const int pageEntries = 20, recordSize = 32;
            const byte deleted = 0xE5, standsForE5 = 5, volumeLabel = 8;
            var entries = new List<Entry>();
            for (uint total = 1, start = 0, before = uint.MaxValue; start < total && start != before;) {
                var page = new byte[pageEntries * recordSize];
                before = start;
                Check(Raw.vxGetDirFileEx(there, (ushort)start, pageEntries, out total, page, pageEntries));
                for (int at = 0; at < page.Length && page[at] != 0; at += recordSize, ++start) {
                    if (page[at] == deleted || (page[at + 11] & volumeLabel) != 0)
                        continue;
                    page[at] = page[at] == standsForE5 ? deleted : page[at];
                    string extension = text.Decode(page, at + 8, 3).TrimEnd(' ');
                    string name = text.Decode(page, at, 8).TrimEnd(' ') + (extension == "" ? "" : "." + extension);
                    Add(entries, name, page[at + 11], BitConverter.ToUInt32(page, at + 28),
                        BitConverter.ToUInt16(page, at + 24), BitConverter.ToUInt16(page, at + 22));
                }
            }
            return entries;
        }

        // The folder itself and the one above it are in a listing of some signs.
        private static void Add(List<Entry> entries, string name, byte attributes, uint size, ushort date, ushort time)
        {
            const byte folder = 0x10;
            if (name != "" && name != "." && name != "..")
                entries.Add(new Entry {
                    Name = name, IsFolder = (attributes & folder) != 0, Size = size, Changed = FolderTime(date, time)
                });
        }

        // In steps of two seconds. Nothing for what is no time.
        private static DateTime? FolderTime(int date, int time) =>
            SignTime(1980 + (date >> 9), date >> 5 & 15, date & 31, time >> 11, time >> 5 & 63, 2 * (time & 31));

        private static DateTime? SignTime(int year, int month, int day, int hour, int minute, int second)
        {
            try {
                return new DateTime(year, month, day, hour, minute, second);
            } catch (ArgumentOutOfRangeException) {
                return null;
            }
        }
    }
}
