// Fonts, modes and colours of the sign.
using System;
using System.Collections.Generic;
using System.Globalization;

namespace Vxsign
{
    internal static class Codes
    {
        private static readonly Dictionary<string, uint> Colours = new Dictionary<string, uint> {
            ["red"] = 0xFF0000,  ["green"] = 0x00FF00,  ["blue"] = 0x0000FF,    ["yellow"] = 0xFFFF00, ["amber"] = 0xFFB000,
            ["orange"] = 0xFF6000, ["magenta"] = 0xFF00FF, ["cyan"] = 0x00FFFF, ["white"] = 0xFFFFFF,
        };

        internal static uint Font(string text) => Code(text, 169, "font");

        internal static uint Mode(string text) => Code(text, 255, "mode");

        // A name, #RRGGBB or a code of the sign.
        internal static uint Colour(string text)
        {
            Texts.Check(text);
            if (Colours.TryGetValue(text, out uint named))
                return TrueColour(named);
            if (!text.StartsWith("#"))
                return Code(text, 255, "colour");
            if (text.Length == 7 && uint.TryParse(text.Substring(1), NumberStyles.AllowHexSpecifier,
                                                  CultureInfo.InvariantCulture, out uint light))
                return TrueColour(light);
            throw new ArgumentException($"'{text}' is no colour such as #FF8000");
        }

        // '/' in the low byte, then red, green and blue.
        private static uint TrueColour(uint light) =>
            '/' | (light >> 16 & 0xFF) << 8 | (light >> 8 & 0xFF) << 16 | (light & 0xFF) << 24;

        private static uint Code(string text, uint last, string what)
        {
            Texts.Check(text);
            if (text.Length == 1 && text[0] >= '0' && text[0] <= '~')
                return text[0];
            if (uint.TryParse(text, NumberStyles.None, CultureInfo.InvariantCulture, out uint code) && code >= '0' &&
                code <= last)
                return code;
            throw new ArgumentException($"'{text}' is no {what}: a character, or a number from 48 to {last}" +
                                        (what == "colour" ? "; or a name such as red, or #RRGGBB" : ""));
        }
    }
}
