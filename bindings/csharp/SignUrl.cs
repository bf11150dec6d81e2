// Where a sign is, as one text.
using System;
using System.Linq;
using System.Net;
using System.Net.Sockets;
using System.Text;

namespace Vxsign
{
    internal static class SignUrl
    {
        private const ushort DefaultPort = 9520;
        private const uint DefaultBaudRate = 9600;

        // Takes "udp://HOST[:PORT]", "tcp://HOST[:PORT]" or "serial:NAME[@BAUD]". Throws ArgumentException.
        internal static void Parse(string url, ref vxApiConfig config)
        {
            Texts.Check(url);
            if (Takes(url, "udp://", out string place))
                Network(url, place, Raw.VX_CHANNEL_UDP, ref config);
            else if (Takes(url, "tcp://", out place))
                Network(url, place, Raw.VX_CHANNEL_TCP, ref config);
            else if (Takes(url, "serial:", out place))
                Serial(url, place, ref config);
            else
                throw Refusal(url, "it is none of udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD");
        }

        private static bool Takes(string url, string prefix, out string rest)
        {
            bool takes = url.StartsWith(prefix, StringComparison.OrdinalIgnoreCase);
            rest = takes ? url.Substring(prefix.Length) : "";
            return takes;
        }

        private static ArgumentException Refusal(string url, string reason) =>
            new ArgumentException($"'{url}' names no sign: {reason}");

        private static unsafe void Network(string url, string place, uint kind, ref vxApiConfig config)
        {
            string[] parts = (place.EndsWith("/") ? place.Remove(place.Length - 1) : place).Split(new[] {':'}, 2);
            ushort port = DefaultPort;
            if (parts.Length > 1 && (!ushort.TryParse(parts[1], out port) || port == 0))
                throw Refusal(url, "the port is a number from 1 to 65535");
            config.kind = kind;
            config.port = port;
            fixed (byte* host = config.host)
                Store(Address(url, parts[0]), host, 32);
        }

        private static unsafe void Serial(string url, string place, ref vxApiConfig config)
        {
            place = place.StartsWith("//") ? place.Substring(2) : place;
            int at = place.LastIndexOf('@');
            string name = at < 0 ? place : place.Remove(at);
            uint baudRate = DefaultBaudRate;
            if (name == "")
                throw Refusal(url, "a serial line needs its name, such as serial:/dev/ttyUSB0@115200");
            if (at >= 0 && (!uint.TryParse(place.Substring(at + 1), out baudRate) || baudRate == 0))
                throw Refusal(url, "the speed is a number of bits per second, such as 115200");
            config.kind = Raw.VX_CHANNEL_SERIAL;
            config.baudRate = baudRate;
            fixed (byte* serial = config.serialName) {
                if (!Store(name, serial, 16))
                    throw Refusal(url, "the name of a serial line has 15 bytes at most");
            }
        }

        // A host of digits and dots alone is meant as an address: nobody but the sign itself should get its traffic.
        private static string Address(string url, string host)
        {
            if (host == "" || !host.All(c => char.IsLetterOrDigit(c) || c == '.' || c == '-' || c == '_'))
                throw Refusal(url, "the host is an IPv4 address such as 192.168.1.50, or a name");
            if (host.All(c => char.IsDigit(c) || c == '.')) {
                bool isWhole = host.Split('.').Length == 4 && IPAddress.TryParse(host, out _);
                return isWhole ? host : throw Refusal(url, host + " is no IPv4 address");
            }
            try {
                return Dns.GetHostAddresses(host).First(each => each.AddressFamily == AddressFamily.InterNetwork)
                    .ToString();
            } catch (Exception unknown) when (unknown is SocketException || unknown is InvalidOperationException) {
                throw Refusal(url, "there is no IPv4 address for " + host);
            }
        }

        private static unsafe bool Store(string text, byte* field, int size)
        {
            byte[] bytes = Encoding.UTF8.GetBytes(text);
            for (int i = 0; i < bytes.Length && i < size - 1; ++i)
                field[i] = bytes[i];
            return bytes.Length < size;
        }
    }
}
