// Makes a play list of local files and sends it with them; then it plays: playlist URL FILE...
//
//     mcs -r:Vxsign.Net.dll playlist.cs
using System;
using System.Linq;
using Vxsign;

static class PlayList
{
    static int Main(string[] arguments)
    {
        const int seconds = 10; // for each picture
        if (arguments.Length < 2) {
            Console.Error.WriteLine("usage: playlist URL FILE...");
            return 2;
        }
        try {
            var sign = new Sign(arguments[0]);
            sign.Playlist(arguments.Skip(1), seconds);
            Console.WriteLine("plays {0}", sign.Playing() ?? "nothing");
            return 0;
        } catch (SignException error) {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
