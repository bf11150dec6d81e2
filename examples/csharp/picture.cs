// Shows picture files on a sign, one after the other: picture URL FILE...
//
//     mcs -r:Vxsign.Net.dll picture.cs
//
// The files go over as they are: each sign knows BMP, some know more.
using System;
using System.IO;
using System.Linq;
using Vxsign;

static class Picture
{
    static int Main(string[] arguments)
    {
        if (arguments.Length < 2) {
            Console.Error.WriteLine("usage: picture URL FILE...");
            return 2;
        }
        try {
            var sign = new Sign(arguments[0]);
            if (arguments.Length == 2)
                sign.Picture(arguments[1]);
            else
                sign.Files(arguments.Skip(1));
            return 0;
        } catch (Exception error) when (error is SignException || error is FileNotFoundException) {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }
}
