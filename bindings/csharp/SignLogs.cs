// The logs of the sign, and what it knows of its pixels: tables of its database, and the check.
using System;
using System.Collections.Generic;
using System.Globalization;
using System.IO;
using System.Linq;
using System.Text;

namespace Vxsign
{
    /// <summary>Rows under named columns.</summary>
    public sealed class Table
    {
        public IReadOnlyList<string> Columns { get; internal set; }
        public IReadOnlyList<IReadOnlyList<string>> Rows { get; internal set; }
    }

    /// <summary>A bad pixel.</summary>
    public sealed class PixelRow
    {
        public uint X { get; internal set; }
        public uint Y { get; internal set; }

        /// <summary>"pixel", or "signal" when its signal does not arrive.</summary>
        public string Kind { get; internal set; }

        public string Status { get; internal set; }
        public string Time { get; internal set; }
    }

    public sealed partial class Sign
    {
        private sealed class Log
        {
            internal string Table;
            internal string Selection;
            internal string[] Columns;
            internal Dictionary<int, string[]> Names = new Dictionary<int, string[]>(); // of codes, by their column
        }

        private static readonly Dictionary<string, Log> TableLogs = new Dictionary<string, Log> {
            ["play"] = new Log {Table = "PlayLog", Selection = "Time,FileName,GroupName,WinID,PlayTimes,TotalSeconds",
                Columns = "time file group window times seconds".Split(' ')},
            ["system"] = new Log {Table = "SysLog", Selection = "DateTime,Type,Operate,Author,Result",
                Columns = "time type operation user outcome".Split(' ')},
            ["temperature"] = new Log {Table = "TempLog",
                Selection = "BeginTime,EndTime,OutHightTemp,OutLowTemp,OutAvgTemp,InHightTemp,InLowTemp,InAvgTemp," +
                    "BoxHightTemp,BoxLowTemp,BoxAvgTemp",
                Columns = "from to outHighC outLowC outAvgC inHighC inLowC inAvgC boxHighC boxLowC boxAvgC".Split(' ')},
            ["tile"] = new Log {Table = "TileInfo", Selection = "*",
                Columns = ("address x y width height temperatureC voltageMv hardware firmware runSeconds lamps badLamps " +
                    "signalErrors state serial limitsC note lightEighths").Split(' '),
                Names = {[13] = new[] {"good", "hot"}}},
            ["event"] = new Log {Table = "EventLog", Selection = "DateTime,EventType,Status,Note",
                Columns = "time event status note".Split(' '),
                Names = {[1] = new[] {"", "door", "pixel", "signal", "tile"}, [2] = new[] {"went", "came"}}},
        };

        /// <summary>
        /// The latest rows of a log, oldest first: play, system, temperature, tile or event. They stay on the sign.
        /// </summary>
        public Table Logs(string log, int limit = 100)
        {
            if (log == null || !TableLogs.TryGetValue(log, out Log wanted))
                throw new ArgumentException($"'{log}' is no log: play, system, temperature, tile or event");
            Within(limit, 1, int.MaxValue, nameof(limit));
            List<string[]> rows = Run(() => ReadRows(wanted.Table, wanted.Selection, wanted.Columns.Length, (uint)limit));
            foreach (string[] row in rows) {
                foreach (KeyValuePair<int, string[]> names in wanted.Names) {
                    uint code = Number(row[names.Key]) ?? uint.MaxValue;
                    if (code < names.Value.Length && names.Value[code] != "")
                        row[names.Key] = names.Value[code];
                }
            }
            return new Table {Columns = wanted.Columns, Rows = rows};
        }

        /// <summary>
        /// The bad pixels: "check" lets the sign look, which takes its time; "last" is what it found when it last did.
        /// </summary>
        public IReadOnlyList<PixelRow> Pixels(string source = "check")
        {
            if (source != "check" && source != "last")
                throw new ArgumentException($"'{source}' is no source of pixels: check or last");
            return Run(() => source == "check" ? CheckPixels() : LastPixels());
        }

        private static unsafe List<PixelRow> CheckPixels()
        {
            var found = new List<PixelRow>();
            VxOnPixelInfo take = (uint user, ref vxPixelRow row) => {
                fixed (vxPixelRow* at = &row)
                    found.Add(new PixelRow {X = row.X, Y = row.Y, Kind = row.Kind == Raw.VX_SIGNAL_BAD ? "signal" : "pixel",
                        Status = Texts.Field(at->Status, 100), Time = Texts.Field(at->Time, 20)});
                return Raw.VX_OK;
            };
            using (var folder = new TempFolder())
                Check(Raw.vxReadPixelInfo(folder.Path + Path.DirectorySeparatorChar, 0, Raw.VX_PIXELS_FROM_CSV, take));
            return found;
        }

        private List<PixelRow> LastPixels()
        {
            Func<string, string, IEnumerable<PixelRow>> From = (table, kind) =>
                ReadRows(table, "X,Y,Status,DateTime", 4, uint.MaxValue).Select(row => new PixelRow {
                    X = Number(row[0]) ?? 0, Y = Number(row[1]) ?? 0, Kind = kind, Status = row[2], Time = row[3]
                });
            return From("PixelStatus", "pixel").Concat(From("PixelSignalErr", "signal")).ToList();
        }

        // The latest rows of a table of the sign's database. A page may have fewer rows than were asked for; the next one
        // begins behind those that came.
        private List<string[]> ReadRows(string table, string selection, int columns, uint most)
        {
            const uint pageRows = 10;
            Ask($"select count(*) from {table}", 1, out List<string[]> counted);
            uint count = (counted.Count > 0 ? Number(counted[0][0]) : null) ?? throw new SignException(Raw.VX_FILE_FORMAT);
            uint wanted = Math.Min(count, most);
            var rows = new List<string[]>();
            while (rows.Count < wanted) {
                uint got = (uint)rows.Count;
                uint announced = Ask($"select {selection} from {table} limit {Math.Min(pageRows, wanted - got)} " +
                                     $"offset {count - wanted + got}", columns, out List<string[]> page);
                if (announced == 0)
                    break; // somebody has cleared the table meanwhile
                if (page.Count == 0)
                    throw new SignException(Raw.VX_FILE_FORMAT);
                rows.AddRange(page.Take((int)(wanted - got)));
                progress?.Invoke((int)((ulong)rows.Count * 100 / wanted));
            }
            return rows;
        }

        // Gives the number of rows that the sign announces. What follows the last whole row is left out: the sign cuts a
        // page that is too long.
        private uint Ask(string sql, int columns, out List<string[]> rows)
        {
            const ushort database = 1;
            var head = new byte[64];
            var bytes = new byte[4096]; // more than any packet holds
            Check(Raw.vxReadDB(database, Texts.Ascii(sql), head, head.Length, bytes, (uint)bytes.Length));
            string rest = text.Decode(bytes);
            rows = new List<string[]>();
            var fields = new List<string>();
            for (int at = 0, end; at < rest.Length && rest[at] == '<' && (end = rest.IndexOf('>', at)) >= 0; at = end + 1) {
                fields.Add(rest.Substring(at + 1, end - at - 1));
                if (fields.Count < columns)
                    continue;
                rows.Add(fields.ToArray());
                fields.Clear();
            }
            return BitConverter.ToUInt16(head, 0);
        }

        private static uint? Number(string text) =>
            uint.TryParse(text, NumberStyles.None, CultureInfo.InvariantCulture, out uint number) ? number : (uint?)null;
    }
}
