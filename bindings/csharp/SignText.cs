// Texts between the program, the sign and this PC.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;

namespace Vxsign
{
    // Texts in the encoding of a sign.
    internal sealed class SignText
    {
        private readonly Encoding encoding;
        private readonly string name;

        internal SignText(string encodingName)
        {
            name = encodingName ?? throw new ArgumentNullException(nameof(encodingName));
            encoding = Find(name);
            const string plain = "09AZaz \x1A\x1C"; // as the codes in a message are
            if (!encoding.GetBytes(plain).SequenceEqual(Encoding.ASCII.GetBytes(plain)))
                throw new ArgumentException($"'{name}' is no encoding for a sign: its ASCII is none");
        }

        // Throws ArgumentException that names the character, and its place, that the encoding lacks.
        internal byte[] Encode(string text)
        {
            Texts.Check(text);
            var bytes = new List<byte>(text.Length);
            for (int at = 0; at < text.Length;) {
                int length = char.IsSurrogatePair(text, at) ? 2 : 1;
                string character = text.Substring(at, length);
                bytes.AddRange(Bytes(character) ?? throw new ArgumentException(Lacks(text, at)));
                at += length;
            }
            return bytes.ToArray();
        }

        // For the library, which takes texts up to a 0.
        internal byte[] Terminated(string text)
        {
            byte[] bytes = Encode(text);
            Array.Resize(ref bytes, bytes.Length + 1);
            return bytes;
        }

        // Paths on the sign: "D:/T/X.NMG" is "D:\T\X.NMG".
        internal byte[] Path(string path)
        {
            const int longest = 255;
            byte[] bytes = Terminated(Texts.SignPath(path));
            return bytes.Length > 1 && bytes.Length <= longest + 1
                ? bytes
                : throw new ArgumentException($"a path on the sign has 1 to {longest} bytes: '{path}'");
        }

        internal string Decode(byte[] bytes, int at, int size)
        {
            int end = Array.IndexOf(bytes, (byte)0, at, size);
            return encoding.GetString(bytes, at, (end < 0 ? at + size : end) - at);
        }

        internal string Decode(byte[] bytes) => Decode(bytes, 0, bytes.Length);

        // The encoder alone does not tell everywhere what it could not say: what comes back has to be the same.
        private byte[] Bytes(string character)
        {
            try {
                byte[] bytes = encoding.GetBytes(character);
                return encoding.GetString(bytes) == character ? bytes : null;
            } catch (EncoderFallbackException) {
                return null;
            }
        }

        private string Lacks(string text, int at)
        {
            bool isHalf = char.IsSurrogate(text[at]) && !char.IsSurrogatePair(text, at);
            int code = isHalf ? text[at] : char.ConvertToUtf32(text, at);
            string shown = isHalf ? "" : " '" + char.ConvertFromUtf32(code) + "'";
            return $"{name} has no{shown} (U+{code:X4}), at character {at + 1}";
        }

        private static Encoding Find(string name)
        {
#if NETSTANDARD
            Encoding.RegisterProvider(CodePagesEncodingProvider.Instance);
#endif
            try {
                if (name.Replace("-", "").Replace("_", "").ToLowerInvariant() == "utf8")
                    return new UTF8Encoding(false, true);
                Encoding known = Encoding.GetEncoding(KnownAs(name));
                return Encoding.GetEncoding(known.CodePage, EncoderFallback.ExceptionFallback,
                                            DecoderFallback.ReplacementFallback);
            } catch (Exception unknown) when (unknown is ArgumentException || unknown is NotSupportedException) {
                throw new ArgumentException($"'{name}' is no encoding that this PC knows", unknown);
            }
        }

        // By the names that vxctl takes.
        private static string KnownAs(string name)
        {
            string lower = name.ToLowerInvariant();
            return lower == "gbk" || lower == "cp936" ? "gb2312"
                : lower == "cp932" ? "shift_jis"
                : lower == "latin1" ? "iso-8859-1"
                : lower.StartsWith("cp125", StringComparison.Ordinal) ? "windows-" + lower.Substring(2)
                : name;
        }
    }

    internal static class Texts
    {
        internal static void Check(string text)
        {
            if (text == null)
                throw new ArgumentNullException(nameof(text));
            int nul = text.IndexOf('\0');
            if (nul >= 0)
                throw new ArgumentException($"a text has no character 0, and this one has it at character {nul + 1}");
        }

        internal static string SignPath(string path)
        {
            Check(path);
            return path.Length > 1 && path[1] == ':' ? path.Replace('/', '\\') : path;
        }

        // A file of this PC that is there.
        internal static string LocalFile(string path)
        {
            Check(path);
            return File.Exists(path) ? path : throw new FileNotFoundException($"'{path}' is no file", path);
        }

        internal static byte[] Ascii(string text) => Encoding.ASCII.GetBytes(text + '\0');

        // The text that a field of a structure or a pointer leads to, up to its 0.
        internal static unsafe string Field(byte* field, int size)
        {
            int length = 0;
            while (length < size && field[length] != 0)
                ++length;
            return Encoding.UTF8.GetString(field, length);
        }

        internal static unsafe string At(IntPtr text) => Field((byte*)text, int.MaxValue);
    }
}
