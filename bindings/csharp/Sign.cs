// A sign: where it is, and how its calls run.
using System;
using System.Collections.Generic;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;

namespace Vxsign
{
    /// <summary>
    /// A sign, for any thread and for many at a time. What fails on the way throws SignException; what cannot be asked for
    /// throws ArgumentException or FileNotFoundException before anything is sent.
    /// </summary>
    public sealed partial class Sign
    {
        // The library calls this one on the thread that runs the call. It is kept alive for good.
        private static readonly VxOnProgress OnProgress = TakeProgress;
        private static readonly VxOnLog OnLog = TakeLog;

        private static string NoFile => Texts.At(Raw.vxErrorDesc(Raw.VX_FILE_NOT_EXISTS));

        [ThreadStatic] private static Sign running; // a call of this thread
        [ThreadStatic] private static Sign former;  // whose properties the library keeps for this thread
        [ThreadStatic] private static Exception thrown; // by a callback of the caller's
        [ThreadStatic] private static string failed;    // what the library logged of the last command that did
        [ThreadStatic] private static int lastPercent;

        private readonly vxApiConfig config;
        private readonly SignText text;
        private readonly Action<int> progress;
        private readonly HashSet<IntPtr> records = new HashSet<IntPtr>(); // of the threads that run calls

        /// <param name="url">udp://HOST[:PORT], tcp://HOST[:PORT] or serial:NAME[@BAUD]</param>
        /// <param name="timeoutMs">milliseconds for each try, 50 to 60000</param>
        /// <param name="retries">tries for each packet, 1 to 100</param>
        /// <param name="chunk">bytes of a file in each packet, 64 to 1280</param>
        /// <param name="destination">address in each packet</param>
        /// <param name="encoding">of texts, names and paths of the sign: gbk, shift_jis, iso-8859-2, ...</param>
        /// <param name="onProgress">gets the percentage of what takes its time, on the thread of the call</param>
        public Sign(string url = "udp://127.0.0.1:9520", int timeoutMs = 3000, int retries = 3, int chunk = 768,
                    int destination = 0, string encoding = "utf-8", Action<int> onProgress = null)
        {
            Library.Need();
            text = new SignText(encoding);
            progress = onProgress;
            SignUrl.Parse(url, ref config);
            config.timeoutMs = (uint)Within(timeoutMs, 50, 60000, nameof(timeoutMs));
            config.retries = (uint)Within(retries, 1, 100, nameof(retries));
            config.dataSize = (ushort)Within(chunk, 64, 1280, nameof(chunk));
            config.destinationAddress = (ushort)Within(destination, 0, ushort.MaxValue, nameof(destination));
            config.onProgress = Marshal.GetFunctionPointerForDelegate(OnProgress);
            config.onLog = Marshal.GetFunctionPointerForDelegate(OnLog);
        }

        /// <summary>From any thread: ends what runs on this sign, with VX_ABORTED. A call begun later runs.</summary>
        public unsafe void Cancel()
        {
            lock (records) {
                foreach (IntPtr record in records)
                    ((vxApiConfig*)record)->abortFlag = 1;
            }
        }

        /// <summary>
        /// Any function of Raw that gives a result word, on this sign: sign.Call(() => Raw.vxBrightAdjustEx(4, 5)).
        /// </summary>
        public void Call(Func<uint> function)
        {
            if (function == null)
                throw new ArgumentNullException(nameof(function));
            Run(() => Check(function()));
        }

        private void Run(Action task) => Run(() => {
            task();
            return true;
        });

        private Result Run<Result>(Func<Result> task)
        {
            if (running != null)
                throw new InvalidOperationException(
                    "a call of this thread is on its way: what it tells its progress may cancel it, but call nothing");
            IntPtr record = Begin();
            try {
                return task();
            } catch (SignException failure) when (failure.Code != Raw.VX_ABORTED && IsAborted(record)) {
                throw new SignException(Raw.VX_ABORTED); // a try that was cut short looks like silence
            } finally {
                End(record);
            }
        }

        // The calling thread becomes that of this sign.
        private unsafe IntPtr Begin()
        {
            vxApiConfig mine = config;
            if (Raw.vxInitAPI(ref mine) != Raw.VX_OK)
                throw new OutOfMemoryException();
            IntPtr state = Raw.vxTLSGet((int)Raw.VX_RECORD_STATE);
            if (former != this && state != IntPtr.Zero)
                *(byte*)state = 0;
            former = running = this;
            thrown = null;
            failed = "";
            IntPtr record = Raw.vxTLSGet((int)Raw.VX_RECORD_CONFIGURATION);
            lock (records)
                records.Add(record);
            return record;
        }

        private void End(IntPtr record)
        {
            lock (records)
                records.Remove(record);
            running = null;
            Exception mine = thrown;
            thrown = null;
            if (mine != null)
                ExceptionDispatchInfo.Capture(mine).Throw();
        }

        private static unsafe bool IsAborted(IntPtr record) => ((vxApiConfig*)record)->abortFlag != 0;

        // An exception would have to cross the library: it waits until that has come back.
        private static void TakeProgress(ref vxApiConfig record, uint reserved, uint percent)
        {
            lastPercent = (int)percent;
            try {
                running?.progress?.Invoke((int)percent);
            } catch (Exception mine) {
                thrown = thrown ?? mine;
                record.abortFlag = 1;
            }
        }

        private static void TakeLog(ref vxApiConfig record, IntPtr source, uint line, uint level, IntPtr message)
        {
            const uint command = 3; // failed, and not a try of it alone
            string told = level == command ? Texts.At(message) : "";
            if (told != "" && told != NoFile) // a file that the sign does not have is no failure
                failed = told;
        }

        private static void Check(uint result)
        {
            if (result != Raw.VX_OK)
                throw new SignException(result);
        }

        // False when the sign refuses. Throws when the line fails.
        private static bool IsDone(uint result)
        {
            if (result == Raw.VX_ABORTED || result == Raw.VX_COMMUNICATION)
                throw new SignException(result);
            return result == Raw.VX_OK;
        }

        private static int Within(int value, int least, int most, string name) => value >= least && value <= most
            ? value
            : throw new ArgumentOutOfRangeException(name, value, $"{name} is a number from {least} to {most}");
    }
}
