// The sign itself, who may use it, and what stands beside it.
using System;
using System.Collections.Generic;
using System.Linq;

namespace Vxsign
{
    public sealed partial class Sign
    {
        // What lies over the play list, as the sign names it, each over the next, and what ends it.
        private static readonly (string Name, Func<uint> End)[] Covers = {
            ("off", () => Raw.vxPowerOnOff(1)),
            ("blank", Raw.vxEndBlackScreen),
            ("emergency", Raw.vxCoreStopEmergencyProgram),
            ("test", Raw.vxStopTest),
            ("ticker", Raw.vxTickerStop),
            ("windows", () => Raw.vxCoreStopPlay(new byte[1])),
            ("video-window", () => Raw.vxMPUSetWin(0, 0, 0, 0, 0, 0, null)),
            ("video-input", () => Raw.vxVPUSelChannel(0)),
            ("program", () => Raw.vxCoreStopPlay(new byte[1])),
            ("zones", () => Raw.vxSetEnableMulitZone(0)),
        };

        private delegate uint GetRegister(byte device, byte section, ushort number, ushort[] value);
        private delegate uint SetRegister(byte device, byte section, ushort number, ushort value);

        private sealed class DeviceClass
        {
            internal DeviceClass(GetRegister get, SetRegister set)
            {
                Get = get;
                Set = set;
            }

            internal readonly GetRegister Get;
            internal readonly SetRegister Set;
        }

        private static readonly Dictionary<string, DeviceClass> Classes =
            new Dictionary<string, DeviceClass>(StringComparer.OrdinalIgnoreCase) {
                ["LC"] = new DeviceClass((device, section, number, value) => Raw.vxMB_LCGet(device, number, value),
                                         (device, section, number, value) => Raw.vxMB_LCSet(device, number, value)),
                ["TLS"] = new DeviceClass(Raw.vxMB_TLSGet, Raw.vxMB_TLSSet),
                ["ALCS"] = new DeviceClass(Raw.vxMB_ALCSGet, Raw.vxMB_ALCSSet),
                ["MLCS"] = new DeviceClass(Raw.vxMB_MLCSGet, Raw.vxMB_MLCSSet),
                ["VSLS"] = new DeviceClass(Raw.vxMB_VSLSGet, Raw.vxMB_VSLSSet),
                ["TOR"] = new DeviceClass(Raw.vxMB_TORGet, Raw.vxMB_TORSet),
                ["VMS"] = new DeviceClass(Raw.vxMB_VMSGet, Raw.vxMB_VMSSet),
                ["PVMS"] = new DeviceClass((device, section, number, value) => Raw.vxMB_PVMSGet(device, number, value),
                                           (device, section, number, value) => Raw.vxMB_PVMSSet(device, number, value)),
            };

        /// <summary>
        /// Ends whatever is over the play list: power off and blank, tests, tickers, programs, video, zones. Gives the names
        /// of what was there, or may have been.
        /// </summary>
        public IReadOnlyList<string> Restore() => Run(() => {
            string[] shows = ReadFace().Shows;
            var ended = new List<string>();
            foreach (var cover in Covers) {
                if (shows != null && !shows.Contains(cover.Name))
                    continue;
                uint result = cover.End.Invoke();
                if (shows != null)
                    Check(result);
                if (IsDone(result)) // what a sign does not tell of is ended all the same, and it may refuse that
                    ended.Add(cover.Name);
            }
            return ended;
        });

        /// <summary>Turns the face dark.</summary>
        public void Blank() => Call(Raw.vxBlackScreen);

        /// <summary>Lets the face show again what the sign plays.</summary>
        public void Unblank() => Call(Raw.vxEndBlackScreen);

        /// <summary>The sign remembers who is logged in.</summary>
        public void Login(string user, string password)
        {
            byte[] name = text.Terminated(user), secret = text.Terminated(password);
            Run(() => Check(Raw.vxLogin(name, secret)));
        }

        public void Logout() => Call(Raw.vxLogout);

        /// <summary>Reads a register of a field device, or writes value to it. Gives the value.</summary>
        /// <param name="deviceClass">LC, TLS, ALCS, MLCS, VSLS, TOR, VMS or PVMS</param>
        /// <param name="device">the Modbus address</param>
        /// <param name="register">counts within the section</param>
        /// <param name="section">sub-unit of the device; 255 is the device as a whole</param>
        /// <param name="value">what to write; null reads</param>
        public int Modbus(string deviceClass, int device, int register, int section = 255, int? value = null)
        {
            if (deviceClass == null || !Classes.TryGetValue(deviceClass, out DeviceClass found))
                throw new ArgumentException($"'{deviceClass}' is no class; there are {string.Join(", ", Classes.Keys)}");
            byte address = (byte)Within(device, 0, byte.MaxValue, nameof(device));
            byte part = (byte)Within(section, 0, byte.MaxValue, nameof(section));
            ushort number = (ushort)Within(register, 0, ushort.MaxValue, nameof(register));
            ushort[] data = {(ushort)Within(value ?? 0, 0, ushort.MaxValue, nameof(value))};
            return Run(() => {
                Check(value == null ? found.Get(address, part, number, data) : found.Set(address, part, number, data[0]));
                return (int)data[0];
            });
        }

        /// <summary>
        /// Firmware for a boot loader that receives XMODEM, normally on a serial line. It is done when every block was
        /// confirmed; whether the end was, the library tells on standard output alone ("sedn EOT:wait ACK tiem out!").
        /// </summary>
        public void Upgrade(string path)
        {
            Texts.LocalFile(path);
            Run(() => {
                lastPercent = 0;
                uint result = Raw.vxXModem_Upgrade(path);
                if (IsAborted(Raw.vxTLSGet((int)Raw.VX_RECORD_CONFIGURATION)))
                    throw new SignException(Raw.VX_ABORTED);
                if (result == Raw.VX_UPGRADE_FAILED)
                    throw new SignException(Raw.VX_FAILED_OPERATION, lastPercent == 0
                        ? "the receiver does not ask for blocks, or refuses them" : "the receiver refuses a block");
                Check(result);
                if (lastPercent < 100)
                    throw new SignException(Raw.VX_FAILED_OPERATION,
                                            $"the receiver confirmed no more than {lastPercent} % of the firmware");
            });
        }
    }
}
