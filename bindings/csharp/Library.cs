// Finds the library, and looks whether it is new enough.
using System;
using System.IO;
using System.Reflection;
using System.Runtime.InteropServices;

namespace Vxsign
{
    internal static class Library
    {
        private static readonly Lazy<Exception> Fault = new Lazy<Exception>(Look);

        internal static bool IsWindows => Path.DirectorySeparatorChar == '\\';

        private static string FileName => IsWindows ? "vxsign.dll" : "libvxsign.so.2";

        // Throws LibraryException, each time anew.
        internal static void Need()
        {
            if (Fault.Value != null)
                throw new LibraryException(Fault.Value.Message, Fault.Value);
        }

        private static Exception Look()
        {
            try {
                Resolve();
                string found = Marshal.PtrToStringAnsi(Raw.vxAPIVersion()).Split(' ')[0];
                return new Version(found) >= new Version(Raw.Version)
                    ? null
                    : new LibraryException($"{FileName} has version {found}, and {Raw.Version} is needed");
            } catch (DllNotFoundException missing) {
                return new LibraryException(
                    $"{FileName} was not found: install the package libvxsign2, or name its folder in " +
                    (IsWindows ? "PATH" : "LD_LIBRARY_PATH"), missing);
            } catch (BadImageFormatException other) {
                return new LibraryException($"{FileName} is for another kind of machine than this process", other);
            } catch (Exception old) when (old is EntryPointNotFoundException || old is FormatException ||
                                          old is ArgumentException) {
                return new LibraryException($"{FileName} is no vxsign {Raw.Version} or later", old);
            }
        }

        // Mono takes the name from the .config beside the assembly; .NET asks this, which it has from version 3.0 on.
        private static void Resolve()
        {
            Type native = Type.GetType("System.Runtime.InteropServices.NativeLibrary");
            Type resolver = Type.GetType("System.Runtime.InteropServices.DllImportResolver");
            if (native == null || resolver == null || IsWindows)
                return;
            Load = (TryLoad)native.GetMethod("TryLoad", new[] {typeof(string), typeof(IntPtr).MakeByRefType()})
                .CreateDelegate(typeof(TryLoad));
            MethodInfo resolve = typeof(Library).GetMethod(nameof(Found), BindingFlags.NonPublic | BindingFlags.Static);
            native.GetMethod("SetDllImportResolver")
                .Invoke(null, new object[] {typeof(Library).Assembly, Delegate.CreateDelegate(resolver, resolve)});
        }

        private delegate bool TryLoad(string name, out IntPtr library);

        private static TryLoad Load;

        private static IntPtr Found(string name, Assembly assembly, DllImportSearchPath? paths) =>
            name == Raw.Library && Load(FileName, out IntPtr library) ? library : IntPtr.Zero;
    }
}
