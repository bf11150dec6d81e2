// Reads a log of a sign as CSV: logs URL [LOG] >log.csv, the log being play, system, temperature, tile or event
//
//     mcs -r:Vxsign.Net.dll logs.cs
using System;
using System.Collections.Generic;
using System.Linq;
using Vxsign;

static class Logs
{
    // Each field in quotes, those in it doubled.
    static string Line(IEnumerable<string> fields) =>
        string.Join(",", fields.Select(field => "\"" + field.Replace("\"", "\"\"") + "\""));

    static int Main(string[] arguments)
    {
        if (arguments.Length < 1) {
            Console.Error.WriteLine("usage: logs URL [LOG]");
            return 2;
        }
        try {
            Table log = new Sign(arguments[0]).Logs(arguments.Length > 1 ? arguments[1] : "system");
            Console.WriteLine(Line(log.Columns));
            foreach (var row in log.Rows)
                Console.WriteLine(Line(row));
            return 0;
        } catch (SignException error) {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
