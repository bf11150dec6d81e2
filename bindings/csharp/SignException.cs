// The ways in which a call fails that had begun.
using System;
using System.Runtime.InteropServices;

namespace Vxsign
{
    /// <summary>The sign or the line failed with a result word.</summary>
    public sealed class SignException : Exception
    {
        public SignException(uint code, string why = null) : base(MessageOf(code, why))
        {
            Code = code;
            Text = TextOf(code);
            Advice = AdviceOf(code);
        }

        /// <summary>The result word, such as Raw.VX_COMMUNICATION.</summary>
        public uint Code { get; }

        /// <summary>What the library says of it.</summary>
        public string Text { get; }

        /// <summary>What helps; empty where the text says all.</summary>
        public string Advice { get; }

        private static string TextOf(uint code) => Marshal.PtrToStringAnsi(Raw.vxErrorDesc(code));

        private static string AdviceOf(uint code) => Raw.Advice.TryGetValue(code, out string advice) ? advice : "";

        private static string MessageOf(uint code, string why)
        {
            string more = why ?? AdviceOf(code);
            return $"error {code} (0x{code:X}): {TextOf(code)}" + (more == "" ? "" : "; " + more);
        }
    }

    /// <summary>The library is missing or too old.</summary>
    public sealed class LibraryException : Exception
    {
        public LibraryException(string message, Exception cause = null) : base(message, cause) {}
    }
}
