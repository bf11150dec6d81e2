// Texts, pictures and files on the face at once. The library's quick show has a connection of its own, without progress
// and cancelling, so this does what it does.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;

namespace Vxsign
{
    public sealed partial class Sign
    {
        /// <summary>A sign of life: three numbers of the sign's.</summary>
        public (ushort First, ushort Second, uint Third) Ping() => Run(() => {
            Check(Raw.vxConnectTest(out ushort first, out ushort second, out uint third));
            return (first, second, third);
        });

        /// <summary>Shows a text; \n breaks the line.</summary>
        /// <param name="text">what is shown</param>
        /// <param name="colour">a name (red green blue yellow amber orange magenta cyan white), #RRGGBB or a code</param>
        /// <param name="font">a code of the sign, 0 to ~ or a number</param>
        /// <param name="mode">entry and exit mode, a code of the sign</param>
        /// <param name="stay">seconds</param>
        public void Show(string text, string colour = "1", string font = "1", string mode = "0", int stay = 5)
        {
            Texts.Check(text);
            byte[] bytes = this.text.Encode(text.Replace("\r\n", "\n").Replace('\n', '\r'));
            if (bytes.Length == 0)
                throw new ArgumentException("the text is empty: Blank() turns the face dark");
            uint colourCode = Codes.Colour(colour), fontCode = Codes.Font(font), modeCode = Codes.Mode(mode);
            uint seconds = (uint)Within(stay, 0, 9999, nameof(stay));
            ShowMessage("QMSG.Nmg", local => {
                Check(Raw.vxShowMsgToNmg(bytes, (uint)bytes.Length, local, (int)fontCode, colourCode, modeCode, seconds));
                using (FileStream file = File.OpenWrite(local)) // goes over with other first bytes than a file has
                    file.Write(Encoding.ASCII.GetBytes("\x01Z00\x02" + "AA"), 0, 7);
            });
        }

        /// <summary>Shows a picture file, unchanged: each sign knows BMP.</summary>
        public void Picture(string path, string mode = "0", int stay = 5)
        {
            string picture = Texts.LocalFile(path);
            uint modeCode = Codes.Mode(mode), seconds = (uint)Within(stay, 0, 9999, nameof(stay));
            ShowMessage("PMSG.Nmg", local => Check(Raw.vxShowBmpToNmg(picture, local, modeCode, seconds)));
        }

        /// <summary>Shows up to 128 local files one after the other, all in the same mode.</summary>
        public void Files(IEnumerable<string> paths, string mode = "0", int stay = 5)
        {
            List<string> files = LocalFiles(paths, 128);
            uint modeCode = Codes.Mode(mode), seconds = (uint)Within(stay, 0, 9999, nameof(stay));
            Run(() => {
                char drive = DriveForContent();
                var style = new DisplayStyle();
                style.SetModeAndStay((byte)modeCode, seconds);
                style.Write();
                var sequence = new SequenceFile();
                foreach (string local in files) {
                    SignPlace place = SignPlace.Of(local, drive);
                    Check(Raw.vxWriteSpecFile(place.Path, local));
                    sequence.Add(drive, place.Folder, place.ShortName);
                }
                sequence.Send();
            });
        }

        private void ShowMessage(string name, Action<string> make) => Run(() => {
            using (var folder = new TempFolder()) {
                string local = folder.File("message");
                make(local);
                char drive = DriveForContent();
                new DisplayStyle().Write();
                Check(Raw.vxWriteSpecFile(Texts.Ascii($"{drive}:\\T\\{name}"), local));
                var sequence = new SequenceFile();
                sequence.Add(drive, (byte)'T', Encoding.ASCII.GetBytes(name));
                sequence.Send();
            }
        });

        // The drive that content goes to: F where the sign has it, else D.
        private static char DriveForContent()
        {
            Check(Raw.vxInitProperty());
            var hasDriveF = new byte[4];
            Check(Raw.vxGetProperty(hasDriveF, 4, (int)Raw.VX_PROPERTY_HAS_DRIVE_F));
            return hasDriveF[0] != 0 ? 'F' : 'D';
        }

        private static List<string> LocalFiles(IEnumerable<string> paths, int most)
        {
            List<string> files = (paths ?? throw new ArgumentNullException(nameof(paths))).Select(Texts.LocalFile).ToList();
            return files.Count > 0 && files.Count <= most
                ? files
                : throw new ArgumentException($"{files.Count} files, and 1 to {most} are wanted");
        }
    }

    // The sign's default style, which has mode and stay time of a list, and where content plays from.
    internal sealed class DisplayStyle
    {
        private const int ContentSource = 2, EntryMode = 11, ExitMode = 12, ShortStay = 14, Stay = 16;
        private const byte LongStay = 255; // as the short one: it is in the 32 bits of the other

        private readonly byte[] known = new byte[52];
        private readonly byte[] wanted;

        internal DisplayStyle()
        {
            Raw.vxGetProperty(known, (uint)known.Length, (int)Raw.VX_PROPERTY_DISPLAY_STYLE);
            wanted = (byte[])known.Clone();
            wanted[ContentSource] = (byte)'C';
        }

        internal void SetModeAndStay(byte mode, uint seconds)
        {
            wanted[EntryMode] = wanted[ExitMode] = mode;
            wanted[ShortStay] = LongStay;
            BitConverter.GetBytes(seconds).CopyTo(wanted, Stay);
        }

        // What the sign answers does not count.
        internal void Write()
        {
            if (wanted.SequenceEqual(known))
                return;
            uint result = Raw.vxWriteDefDisplayStyle(wanted);
            if (result == Raw.VX_ABORTED || result == Raw.VX_COMMUNICATION)
                throw new SignException(result);
        }
    }

    // What the sign plays, in the flat form.
    internal sealed class SequenceFile
    {
        private readonly List<byte> bytes = new List<byte> {(byte)'S', (byte)'Q', 4, 0, 0, 0, 0, 0};
        private ushort count;

        internal void Add(char drive, byte folder, byte[] shortName)
        {
            const int nameAt = 24, nameSize = 12;
            var entry = new byte[36];
            new[] {(byte)drive, folder, (byte)15, (byte)255}.CopyTo(entry, 0); // without a schedule
            Array.Copy(shortName, 0, entry, nameAt, Math.Min(shortName.Length, nameSize));
            bytes.AddRange(entry);
            ++count;
            bytes[4] = (byte)count;
            bytes[5] = (byte)(count >> 8);
        }

        internal void Send()
        {
            using (var folder = new TempFolder()) {
                string local = folder.File("sequence");
                File.WriteAllBytes(local, bytes.ToArray());
                uint result = Raw.vxWriteSystemFile(Texts.Ascii("SEQUENT.SYS"), local);
                if (result != Raw.VX_OK)
                    throw new SignException(result);
            }
        }
    }

    // Where the library puts a local file on the sign.
    internal struct SignPlace
    {
        internal byte[] Path;
        internal byte[] ShortName;
        internal byte Folder;

        internal static SignPlace Of(string local, char drive)
        {
            var place = new SignPlace {Path = new byte[64], ShortName = new byte[13]};
            var folder = new byte[1];
            uint result = Raw.vxMakeSignPath(local, place.Path, 64, (byte)drive, folder, place.ShortName);
            if (result != Raw.VX_OK)
                throw new SignException(result);
            place.Folder = folder[0];
            return place;
        }
    }
}
