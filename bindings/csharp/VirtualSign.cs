// A virtual sign for tests.
using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Linq;

namespace Vxsign
{
    /// <summary>
    /// A vxsim of its own, on ports that the system picks, which goes with this object. It is the program of the variable
    /// VXSIM, or vxsim in PATH.
    /// </summary>
    public sealed class VirtualSign : IDisposable
    {
        private readonly TempFolder folder = new TempFolder();
        private readonly Process process;
        private readonly Dictionary<string, string> places = new Dictionary<string, string>();

        /// <param name="width">pixels of the face</param>
        /// <param name="height">likewise</param>
        /// <param name="options">more options of vxsim, such as --login USER:PASSWORD, with blanks between</param>
        public VirtualSign(int width = 128, int height = 32, string options = "")
        {
            string program = Environment.GetEnvironmentVariable("VXSIM");
            try {
                process = Process.Start(
                    new ProcessStartInfo(string.IsNullOrEmpty(program) ? "vxsim" : program,
                        $"--port 0 --size {width}x{height} --dir \"{Folder}\" --png \"{Png}\" {options}") {
                        UseShellExecute = false, RedirectStandardOutput = true
                    });
            } catch (Exception) {
                folder.Dispose();
                throw;
            }
            ReadPlaces(options.Split(' '));
        }

        /// <summary>Where a Sign reaches it.</summary>
        public string Url => "udp://" + Place("udp");

        /// <summary>The folder of the sign, with its drives.</summary>
        public string Folder => folder.File("sign");

        /// <summary>A picture of the face, written when it has changed.</summary>
        public string Png => folder.File("face.png");

        /// <summary>Where else it is, as vxsim tells: "tcp", "serial", "modbus", ...</summary>
        public string Place(string name) =>
            places.TryGetValue(name, out string place) ? place : throw new ArgumentException($"vxsim tells no {name}");

        public void Dispose()
        {
            try {
                process.Kill();
                process.WaitForExit();
            } catch (InvalidOperationException) { // it has ended already
            }
            process.Dispose();
            folder.Dispose();
        }

        // A line for each that the options want, that of TCP behind that of UDP.
        private void ReadPlaces(string[] options)
        {
            var wanted = new HashSet<string> {"udp", "tcp"};
            foreach (string name in new[] {"serial", "modbus", "modbus-tcp", "web"})
                if (options.Contains("--" + name))
                    wanted.Add(name);
            if (options.Contains("--bootloader"))
                wanted.Add("serial");
            while (!wanted.IsSubsetOf(places.Keys)) {
                string line = process.StandardOutput.ReadLine();
                if (line == null) {
                    Dispose();
                    throw new InvalidOperationException("vxsim does not start: " + process.StartInfo.Arguments);
                }
                int blank = line.IndexOf(' ');
                places[line.Remove(blank)] = line.Substring(blank + 1);
            }
        }
    }
}
