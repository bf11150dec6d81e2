// A folder for what goes to the sign.
using System;
using System.IO;

namespace Vxsign
{
    internal sealed class TempFolder : IDisposable
    {
        internal TempFolder()
        {
            Path = System.IO.Path.Combine(System.IO.Path.GetTempPath(), "vxsign-" + Guid.NewGuid().ToString("N"));
            Directory.CreateDirectory(Path);
        }

        internal string Path { get; }

        internal string File(string name) => System.IO.Path.Combine(Path, name);

        public void Dispose()
        {
            try {
                Directory.Delete(Path, true);
            } catch (IOException) { // the system clears it
            }
        }
    }
}
