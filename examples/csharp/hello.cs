// Shows a text on a sign: hello [URL [TEXT [COLOUR]]]
//
//     mcs -r:Vxsign.Net.dll hello.cs
//     mono hello.exe udp://127.0.0.1:9520 "HELLO 42" red
using System;
using Vxsign;

static class Hello
{
    static int Main(string[] arguments)
    {
        try {
            var sign = new Sign(arguments.Length > 0 ? arguments[0] : "udp://127.0.0.1:9520");
            sign.Show(arguments.Length > 1 ? arguments[1] : "HELLO 42", arguments.Length > 2 ? arguments[2] : "amber");
            return 0;
        } catch (SignException error) {
            Console.Error.WriteLine(error.Text + "\n" + error.Advice);
            return 1;
        }
    }
}
