// Sends a file to a sign and tells how far it is; Ctrl-C ends it: file URL LOCAL PATH
//
//     mcs -r:Vxsign.Net.dll file.cs
//     mono file.exe udp://127.0.0.1:9520 hello.nmg D:/T/HELLO.NMG
using System;
using Vxsign;

static class SendFile
{
    static int Main(string[] arguments)
    {
        if (arguments.Length != 3) {
            Console.Error.WriteLine("usage: file URL LOCAL PATH");
            return 2;
        }
        var sign = new Sign(arguments[0], timeoutMs: 1000, onProgress: percent => Console.Write("\r{0} %", percent));
        Console.CancelKeyPress += (sender, pressed) => {
            pressed.Cancel = true; // the program goes on, and says how it ended
            sign.Cancel();
        };
        try {
            sign.Put(arguments[1], arguments[2]);
            Console.WriteLine();
            return 0;
        } catch (SignException error) {
            Console.Error.WriteLine("\n" + error.Text);
            return 1;
        }
    }
}
