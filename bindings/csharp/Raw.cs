// The functions, structures, callbacks and constants of the library. Made by bindings/generate.py from include/vxsign:
// change the headers, not this file.
//
// A text is a string, in the encoding of this PC; a text that the sign sees is its bytes with a 0 behind them. What may
// be null is an array, also where it has one element. Whoever keeps a delegate in a structure keeps it alive.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Vxsign
{
    /// <summary>
    /// A command object was made, or comes to its end: once for each command, also for one that is then refused.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void VxOnOpen(ref vxApiConfig config);

    /// <summary>
    /// A command object was made, or comes to its end: once for each command, also for one that is then refused.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void VxOnClose(ref vxApiConfig config);

    /// <summary>Progress of a transfer or of a long operation, 0 to 100 percent whatever a sign says.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void VxOnProgress(ref vxApiConfig config, uint reserved, uint percent);

    /// <summary>
    /// Reads up to capacity bytes, waiting timeoutMs at most; returns the bytes read, 0 for none.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate int VxOnRead(ref vxApiConfig config, IntPtr buffer, uint capacity, uint timeoutMs);

    /// <summary>Writes length bytes; the result is not looked at.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate int VxOnWrite(ref vxApiConfig config, IntPtr buffer, uint length, uint timeoutMs);

    /// <summary>A failed try (level 6) or a failed command (level 3), with its text.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void VxOnLog(ref vxApiConfig config, IntPtr sourcePath, uint line, uint level, IntPtr message);

    /// <summary>
    /// Turns a message file of the sign into a GIF; the library has no converter of its own. The two numbers are the
    /// converter's own settings.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnMessageToGif(ref vxApiConfig config, IntPtr messagePath, IntPtr gifPath, uint first,
        uint second);

    /// <summary>
    /// Fills in the folder for temporary files, up to capacity bytes, ending in a path separator and NUL.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void VxOnTempPath(ref vxApiConfig config, IntPtr buffer, uint capacity);

    /// <summary>Takes one entry of a long listing, 276 bytes as the sign made them. Must not throw.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnFolderEntry(IntPtr entry, IntPtr user);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnPlayLog(uint user, ref PlayLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnSignLog(uint user, ref SignLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnTempLog(uint user, ref TempLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnTileInfo(uint user, ref TileInfoRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnEventLog(uint user, ref EventLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnRadarLog(uint user, ref RadarLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnTJRadarLog(uint user, ref TJRadarLogRecord record);

    /// <summary>The battery at one time, as the sign means it.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnBatInfoLog(uint user, ref BatInfoLogRecord record);

    /// <summary>
    /// A finding: 132 bytes. Texts are cut to their fields and have no terminator when they fill them.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnPixelInfo(uint user, ref vxPixelRow row);

    /// <summary>
    /// A finding: 132 bytes. Texts are cut to their fields and have no terminator when they fill them.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnPixelError(ref vxPixelRow row);

    /// <summary>
    /// Takes the status, the 8 bytes of the beacon, and the path of the message that the sign shows.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnStatusInfo(uint user, ref vxStatusRecord status, IntPtr beacon, IntPtr messagePath);

    /// <summary>
    /// Takes the status, the 8 bytes of the beacon, and the path of the message that the sign shows.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnWaringLog(ref vxWaringLogRow row);

    /// <summary>
    /// Takes the status, the 8 bytes of the beacon, and the path of the message that the sign shows.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnWaringReport(ref vxWaringReportRow row);

    /// <summary>
    /// Take a record, which is valid during the call only, on the calling thread; must not throw. 0 goes on.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnTrafficError(ref TrafficLogEntry entry);

    /// <summary>
    /// Take a record, which is valid during the call only, on the calling thread; must not throw. 0 goes on.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate uint VxOnTrafficTemp(ref TrafficTempEntry entry);

    /// <summary>
    /// The configuration of one thread: 192 bytes, a binary contract.  A try writes the request, for timeoutMs at most,
    /// and gathers the reply. Over a channel that is in time as long as timeoutMs is not over, in however many pieces
    /// it comes. A try that gets nothing ends after timeoutMs, with onRead after about twice that. It counts reads
    /// rather than time, though: the header of a reply with nothing behind it makes a try last up to twice timeoutMs
    /// over a channel, with onRead up to four times timeoutMs and half a second.  A call makes an exchange for each
    /// piece of what it moves or waits for, of up to retries tries, and ends with the first that fails; some go on to a
    /// second and a third. So a sign that never answers holds a call for the time of a few exchanges, and one that
    /// answers for as many as it announces: pieces of a file of up to 4 GB, rows of a table, polls of a task. Where a
    /// header gives no bound of its own, onProgress is the place for the caller's: there it may set abortFlag.  A TCP
    /// connection that is not made within retries x timeoutMs gives VX_COMMUNICATION.  abortFlag ends whatever waits:
    /// for a connection, for an answer, for room to write, between two polls of a long operation. A wait looks at it
    /// every 50 ms, and at once behind a signal that comes in the thread; one of the caller's own, in onRead or
    /// onWrite, has its time. The next try then gives VX_ABORTED; a last one that was cut short gives VX_COMMUNICATION,
    /// as for any other silence. What has reached the sign stays there.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 192)]
    public unsafe struct vxApiConfig
    {
        [FieldOffset(0)] public uint kind;
        [FieldOffset(4)] public uint initialised;
        [FieldOffset(8)] public fixed byte host[32];
        [FieldOffset(40)] public fixed byte serialName[16];
        [FieldOffset(56)] public uint port;
        [FieldOffset(60)] public uint baudRate;
        [FieldOffset(64)] public fixed byte reserved1[16];
        [FieldOffset(80)] public ushort sourceAddress;
        [FieldOffset(82)] public ushort destinationAddress;
        [FieldOffset(84)] public uint retries;
        [FieldOffset(88)] public uint timeoutMs;
        [FieldOffset(92)] public uint abortFlag;
        [FieldOffset(96)] public ushort progressTotal;
        [FieldOffset(98)] public ushort progressPos;
        [FieldOffset(100)] public ushort dataSize;
        [FieldOffset(102)] public fixed byte reserved2[26];
        [FieldOffset(128)] public IntPtr onOpen;
        [FieldOffset(136)] public IntPtr onClose;
        [FieldOffset(144)] public IntPtr onProgress;
        [FieldOffset(152)] public IntPtr onRead;
        [FieldOffset(160)] public IntPtr onWrite;
        [FieldOffset(168)] public IntPtr onLog;
        [FieldOffset(176)] public IntPtr onMessageToGif;
        [FieldOffset(184)] public IntPtr onTempPath;
    }

    /// <summary>How the files of a tile begin.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 32)]
    public unsafe struct TileFileHeader
    {
        [FieldOffset(0)] public ushort magic;
        [FieldOffset(2)] public ushort headerLength;
        [FieldOffset(4)] public ushort reserved;
        [FieldOffset(6)] public ushort fileType;
        [FieldOffset(8)] public ushort reserved2;
        [FieldOffset(10)] public fixed ushort stamps[2];
        [FieldOffset(14)] public ushort reserved3;
        [FieldOffset(16)] public uint bodyLength;
        [FieldOffset(20)] public fixed byte reserved4[12];
    }

    /// <summary>What follows in a status file.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 96)]
    public unsafe struct TileStaRecord
    {
        [FieldOffset(0)] public fixed byte reserved[16];
        [FieldOffset(16)] public byte flags;
        [FieldOffset(17)] public fixed byte reserved2[35];
        [FieldOffset(52)] public ushort width;
        [FieldOffset(54)] public ushort height;
        [FieldOffset(56)] public ushort moduleWidth;
        [FieldOffset(58)] public ushort moduleHeight;
        [FieldOffset(60)] public byte modulesAcross;
        [FieldOffset(61)] public byte modulesDown;
        [FieldOffset(62)] public fixed byte reserved3[34];
    }

    /// <summary>What the sign has played, and how often.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 388)]
    public unsafe struct PlayLogRecord
    {
        [FieldOffset(0)] public int PlayTimes;
        [FieldOffset(4)] public int TotalSeconds;
        [FieldOffset(8)] public int WinID;
        [FieldOffset(12)] public fixed byte FileName[256];
        [FieldOffset(268)] public fixed byte Time[20];
        [FieldOffset(288)] public fixed byte GroupName[100];
    }

    /// <summary>What was done with the sign, and by whom.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 376)]
    public unsafe struct SignLogRecord
    {
        [FieldOffset(0)] public int Type;
        [FieldOffset(4)] public fixed byte Operate[100];
        [FieldOffset(104)] public fixed byte Author[52];
        [FieldOffset(156)] public fixed byte Result[200];
        [FieldOffset(356)] public fixed byte DateTime[20];
    }

    /// <summary>
    /// Temperatures over a span of time: highest, lowest, average; outside, inside, in the box.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 76)]
    public unsafe struct TempLogRecord
    {
        [FieldOffset(0)] public fixed byte BeginTime[20];
        [FieldOffset(20)] public fixed byte EndTime[20];
        [FieldOffset(40)] public int OutHightTemp;
        [FieldOffset(44)] public int OutLowTemp;
        [FieldOffset(48)] public int OutAvgTemp;
        [FieldOffset(52)] public int InHightTemp;
        [FieldOffset(56)] public int InLowTemp;
        [FieldOffset(60)] public int InAvgTemp;
        [FieldOffset(64)] public int BoxHightTemp;
        [FieldOffset(68)] public int BoxLowTemp;
        [FieldOffset(72)] public int BoxAvgTemp;
    }

    /// <summary>
    /// One tile. The 18 columns of the sign's table, which only the sign names, and when they were read.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 332)]
    public unsafe struct TileInfoRecord
    {
        [FieldOffset(0)] public fixed int Column1To7[7];
        [FieldOffset(28)] public fixed byte Column8[16];
        [FieldOffset(44)] public fixed byte Column9[16];
        [FieldOffset(60)] public int Column10;
        [FieldOffset(64)] public fixed byte Column11[4];
        [FieldOffset(68)] public fixed int Column12To14[3];
        [FieldOffset(80)] public fixed byte Column15[52];
        [FieldOffset(132)] public int Column16;
        [FieldOffset(136)] public fixed byte Column17[52];
        [FieldOffset(188)] public int Column18;
        [FieldOffset(192)] public fixed byte reserved[120];
        [FieldOffset(312)] public fixed byte ReadTime[20];
    }

    /// <summary>
    /// One tile. The 18 columns of the sign's table, which only the sign names, and when they were read.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 128)]
    public unsafe struct EventLogRecord
    {
        [FieldOffset(0)] public int EventType;
        [FieldOffset(4)] public int Status;
        [FieldOffset(8)] public fixed byte DateTime[20];
        [FieldOffset(28)] public fixed byte Note[100];
    }

    /// <summary>One measurement of the radar, as the sign means it.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 28)]
    public unsafe struct RadarLogRecord
    {
        [FieldOffset(0)] public uint First;
        [FieldOffset(4)] public uint Second;
        [FieldOffset(8)] public fixed byte Time[20];
    }

    /// <summary>
    /// The same of the radar that counts by lanes. Byte0 to Byte7 are those of the sign's record.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 56)]
    public unsafe struct TJRadarLogRecord
    {
        [FieldOffset(0)] public int Lane;
        [FieldOffset(4)] public int Byte0;
        [FieldOffset(8)] public int Byte1;
        [FieldOffset(12)] public int Byte2;
        [FieldOffset(16)] public int Byte5;
        [FieldOffset(20)] public int Byte3;
        [FieldOffset(24)] public int Byte6;
        [FieldOffset(28)] public int Byte4;
        [FieldOffset(32)] public int Byte7;
        [FieldOffset(36)] public fixed byte Time[20];
    }

    /// <summary>The battery at one time, as the sign means it.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 48)]
    public unsafe struct BatInfoLogRecord
    {
        [FieldOffset(0)] public uint Value1;
        [FieldOffset(4)] public uint Value2;
        [FieldOffset(8)] public ushort Value3;
        [FieldOffset(10)] public ushort Value4;
        [FieldOffset(12)] public fixed byte reserved[2];
        [FieldOffset(14)] public byte Value5;
        [FieldOffset(15)] public byte Value6;
        [FieldOffset(16)] public fixed ushort Value7To12[6];
        [FieldOffset(28)] public fixed byte Time[20];
    }

    /// <summary>What vxOndraGetResult gives.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 4)]
    public unsafe struct TileTaskState
    {
        [FieldOffset(0)] public byte progress;
        [FieldOffset(1)] public byte state;
        [FieldOffset(2)] public ushort detail;
    }

    /// <summary>
    /// A finding: 132 bytes. Texts are cut to their fields and have no terminator when they fill them.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 132)]
    public unsafe struct vxPixelRow
    {
        [FieldOffset(0)] public uint Kind;
        [FieldOffset(4)] public uint X;
        [FieldOffset(8)] public ushort Y;
        [FieldOffset(10)] public fixed byte Status[100];
        [FieldOffset(110)] public fixed byte Time[20];
        [FieldOffset(130)] public ushort Number;
    }

    /// <summary>
    /// What vxCoreProjectInfoEx sends along: 20 bytes that only application and player interpret.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 20)]
    public unsafe struct ProjectExtra
    {
        [FieldOffset(0)] public fixed byte bytes[20];
    }

    /// <summary>
    /// When a file may play. Dates and times are BCD: the year 2008 is 0x2008, the hour 23 is 0x23. The library stores
    /// them for the sign and does not interpret them.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 18)]
    public unsafe struct SCH
    {
        [FieldOffset(0)] public byte bweek_rep;
        [FieldOffset(1)] public byte reserved;
        [FieldOffset(2)] public ushort b_year;
        [FieldOffset(4)] public byte b_month;
        [FieldOffset(5)] public byte b_day;
        [FieldOffset(6)] public byte b_hour;
        [FieldOffset(7)] public byte b_minute;
        [FieldOffset(8)] public byte b_date_valid;
        [FieldOffset(9)] public byte b_time_valid;
        [FieldOffset(10)] public ushort e_year;
        [FieldOffset(12)] public byte e_month;
        [FieldOffset(13)] public byte e_day;
        [FieldOffset(14)] public byte e_hour;
        [FieldOffset(15)] public byte e_minute;
        [FieldOffset(16)] public byte e_date_valid;
        [FieldOffset(17)] public byte e_time_valid;
    }

    /// <summary>A file of the list.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 5384)]
    public unsafe struct VXPLAYLIST_FILE_INFO
    {
        [FieldOffset(0)] public fixed byte fileName[256];
        [FieldOffset(256)] public byte schCount;
        [FieldOffset(257)] public byte playTimes;
        [FieldOffset(258)] public byte Drive;
        [FieldOffset(259)] public byte Type;
        [FieldOffset(260)] public ushort PicStaySec;
        [FieldOffset(262)] public byte PicInMode;
        [FieldOffset(263)] public byte PicOutMode;
        [FieldOffset(264)] public fixed byte SCH[4608];
        [FieldOffset(4872)] public fixed byte pcFileName[512];
    }

    /// <summary>One line of a level's listing.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 257)]
    public unsafe struct VXPLAYLIST_ITEM
    {
        [FieldOffset(0)] public byte kind;
        [FieldOffset(1)] public fixed byte name[256];
    }

    /// <summary>How the sign is reached: 84 bytes, a binary contract.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 84)]
    public unsafe struct vxCommunicationSet
    {
        [FieldOffset(0)] public fixed byte address[32];
        [FieldOffset(32)] public ushort port;
        [FieldOffset(34)] public byte firstSetting;
        [FieldOffset(35)] public byte secondSetting;
        [FieldOffset(36)] public fixed byte secondAddress[32];
        [FieldOffset(68)] public fixed byte thirdAddress[16];
    }

    /// <summary>
    /// The sign's status: 96 bytes. What has no meaning given is the sign's, as replied by vxReadCurrentState. Value0
    /// to Value3 are taken from the state word (its bytes 1, 2, 4 and 6) where the record has a 0.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 96)]
    public unsafe struct vxStatusRecord
    {
        [FieldOffset(0)] public byte Value0;
        [FieldOffset(1)] public byte Value1;
        [FieldOffset(2)] public byte Value2;
        [FieldOffset(3)] public byte Value3;
        [FieldOffset(4)] public fixed byte reserved4[60];
        [FieldOffset(64)] public byte Longitude;
        [FieldOffset(65)] public byte Latitude;
        [FieldOffset(66)] public fixed byte reserved66[2];
        [FieldOffset(68)] public ushort LongitudeDegrees;
        [FieldOffset(70)] public ushort LongitudeMinutes;
        [FieldOffset(72)] public ushort LongitudeSeconds;
        [FieldOffset(74)] public ushort LatitudeDegrees;
        [FieldOffset(76)] public ushort LatitudeMinutes;
        [FieldOffset(78)] public ushort LatitudeSeconds;
        [FieldOffset(80)] public fixed byte reserved80[4];
        [FieldOffset(84)] public byte Mode;
        [FieldOffset(85)] public fixed byte reserved85[11];
    }

    /// <summary>A warning out of the sign's ring: 380 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 380)]
    public unsafe struct vxWaringLogRow
    {
        [FieldOffset(0)] public uint Level;
        [FieldOffset(4)] public fixed byte Time[20];
        [FieldOffset(24)] public fixed byte SignName[100];
        [FieldOffset(124)] public fixed byte Text[256];
    }

    /// <summary>
    /// A warning out of the sign's report: 392 bytes. Texts are cut to their fields, with a terminator.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 392)]
    public unsafe struct vxWaringReportRow
    {
        [FieldOffset(0)] public uint Kind;
        [FieldOffset(4)] public byte X;
        [FieldOffset(5)] public byte Y;
        [FieldOffset(6)] public fixed byte Name[64];
        [FieldOffset(70)] public fixed byte Value[256];
        [FieldOffset(326)] public fixed byte Time[66];
    }

    /// <summary>How the result of a status task begins.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 6)]
    public unsafe struct TileStatRecord
    {
        [FieldOffset(0)] public byte width;
        [FieldOffset(1)] public byte height;
        [FieldOffset(2)] public byte reserved;
        [FieldOffset(3)] public ushort firmware;
        [FieldOffset(5)] public byte tileModel;
    }

    /// <summary>The calibration of one pixel: a matrix of 3 by 3, row after row.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 18)]
    public unsafe struct TilePixelRecord
    {
        [FieldOffset(0)] public fixed ushort coefficients[9];
    }

    /// <summary>
    /// The same in a file of tileModel 0: the diagonal in eight bits, the others in four. From bit 15 down each word
    /// has the coefficients 0, 1, 2; 4, 3, 5; 8, 6, 7.
    /// </summary>
    [StructLayout(LayoutKind.Explicit, Size = 6)]
    public unsafe struct CompactPixelRecord
    {
        [FieldOffset(0)] public fixed ushort words[3];
    }

    /// <summary>How a tile pixel file begins.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 32)]
    public unsafe struct TilePixelFileHeader
    {
        [FieldOffset(0)] public ushort magic;
        [FieldOffset(2)] public ushort headerLength;
        [FieldOffset(4)] public fixed ushort version[2];
        [FieldOffset(8)] public ushort sum;
        [FieldOffset(10)] public ushort year;
        [FieldOffset(12)] public byte month;
        [FieldOffset(13)] public byte day;
        [FieldOffset(14)] public byte hour;
        [FieldOffset(15)] public byte minute;
        [FieldOffset(16)] public byte second;
        [FieldOffset(17)] public byte dayOfWeek;
        [FieldOffset(18)] public uint bodyLength;
        [FieldOffset(22)] public fixed byte reserved[10];
    }

    /// <summary>What stands ahead of each module's records where a file has modules.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 64)]
    public unsafe struct TilePixelBlockHeader
    {
        [FieldOffset(0)] public ushort magic;
        [FieldOffset(2)] public ushort crc;
        [FieldOffset(4)] public uint bodyLength;
        [FieldOffset(8)] public ushort date;
        [FieldOffset(10)] public ushort time;
        [FieldOffset(12)] public fixed byte reserved[52];
    }

    /// <summary>The state that vxCrayTest shows: 6 bytes, a binary contract.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 6)]
    public unsafe struct vxCrayState
    {
        [FieldOffset(0)] public uint first;
        [FieldOffset(4)] public ushort second;
    }

    /// <summary>What a dump file begins with: 12 bytes; the block of the controller follows.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 12)]
    public unsafe struct TrafficDumpHeader
    {
        [FieldOffset(0)] public uint magic;
        [FieldOffset(4)] public uint length;
        [FieldOffset(8)] public ushort reserved;
        [FieldOffset(10)] public ushort time;
    }

    /// <summary>A record of the error log: 380 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 380)]
    public unsafe struct TrafficLogEntry
    {
        [FieldOffset(0)] public uint level;
        [FieldOffset(4)] public fixed byte time[20];
        [FieldOffset(24)] public fixed byte signName[100];
        [FieldOffset(124)] public fixed byte text[256];
    }

    /// <summary>A record of the temperature log: 128 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 128)]
    public unsafe struct TrafficTempEntry
    {
        [FieldOffset(0)] public fixed byte time[20];
        [FieldOffset(20)] public fixed byte signName[100];
        [FieldOffset(120)] public uint sample;
        [FieldOffset(124)] public uint sourceId;
    }

    /// <summary>What stands before the zones of a page: 8 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 8)]
    public unsafe struct ZoneHead
    {
        [FieldOffset(0)] public fixed byte head[3];
        [FieldOffset(3)] public byte zoneCount;
        [FieldOffset(4)] public fixed byte tail[4];
    }

    /// <summary>One zone: 12 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 12)]
    public unsafe struct ZoneEntry
    {
        [FieldOffset(0)] public fixed byte bytes[12];
    }

    /// <summary>What stands before the display data of a zone: 32 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 32)]
    public unsafe struct DisplayHead
    {
        [FieldOffset(0)] public fixed byte head[28];
        [FieldOffset(28)] public ushort dataLength;
        [FieldOffset(30)] public fixed byte tail[2];
    }

    /// <summary>What stands before the content of a zone: 8 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 8)]
    public unsafe struct ContentHead
    {
        [FieldOffset(0)] public fixed byte head[6];
        [FieldOffset(6)] public ushort dataLength;
    }

    /// <summary>What stands before the data of special zones: 12 bytes.</summary>
    [StructLayout(LayoutKind.Explicit, Size = 12)]
    public unsafe struct SpeZoneHead
    {
        [FieldOffset(0)] public fixed byte head[6];
        [FieldOffset(6)] public ushort wordCount;
        [FieldOffset(8)] public fixed byte tail[4];
    }

    public static class Raw
    {
        public const string Library = "vxsign";

        /// <summary>The version of the library that this is for; it works with later ones.</summary>
        public const string Version = "2.3.10";

        public const uint VX_CHANNEL_UDP = 0;
        public const uint VX_CHANNEL_TCP = 1;
        public const uint VX_CHANNEL_SERIAL = 2;
        public const uint VX_RECORD_CONFIGURATION = 0;
        public const uint VX_RECORD_STATE = 1;
        public const uint VX_RECORD_PLAY_LIST = 2;
        public const uint VX_TILE_LOCKED = 16;
        public const uint VX_LOG_READ = 1;
        public const uint VX_BATTERY_SECOND_LOG = 1;
        public const uint VX_SIGN_TIME_SIZE = 20;
        public const uint VX_MOVE_READ = 1;
        public const uint VX_MOVE_WRITE = 2;
        public const uint VX_NO_PORT = 255;
        public const uint VX_TILES_OF_PORT = 65535;
        public const uint VX_CAL_PARAMS = 88;
        public const uint VX_TILE_CALIBRATION = 5;
        public const uint VX_TILE_STATUS = 7;
        public const uint VX_TILE_COEFFICIENTS = 13;
        public const uint VX_PIXEL_BAD = 2;
        public const uint VX_SIGNAL_BAD = 3;
        public const uint VX_PIXELS_FROM_CSV = 0;
        public const uint VX_PIXELS_FROM_DATABASE = 1;
        public const uint VX_PIXELS_FROM_TEXT = 2;
        public const uint VX_PIXELS_FROM_TEXT_2 = 9;
        public const uint VX_SCHEDULES = 256;
        public const uint VX_ENTRY_GROUP = 0;
        public const uint VX_ENTRY_FILE = 1;
        public const uint VX_MOVE_DOWN = 1;
        public const uint VX_PROPERTY_HAS_DRIVE_F = 1;
        public const uint VX_PROPERTY_CONTENT_SOURCE = 2;
        public const uint VX_PROPERTY_DISPLAY_STYLE = 3;
        public const uint VX_PROPERTY_SEQUENCE_FORM = 4;
        public const uint VX_OK = 0;
        public const uint VX_NO_RECORD = 1;
        public const uint VX_ARGUMENTS = 2;
        public const uint VX_NOT_INITIALISED = 3;
        public const uint VX_TIME_LIMIT = 4;
        public const uint VX_NO_MAGIC = 5;
        public const uint VX_CALL = 256;
        public const uint VX_CALL_2 = 257;
        public const uint VX_FILE_FORMAT = 258;
        public const uint VX_CANNOT_MODIFY = 259;
        public const uint VX_NO_TASK = 260;
        public const uint VX_NO_FUNCTION = 261;
        public const uint VX_UNKNOWN_TASK = 262;
        public const uint VX_NOT_CONNECTED = 263;
        public const uint VX_DATABASE_OPEN = 512;
        public const uint VX_DATABASE_COMMAND = 513;
        public const uint VX_DATABASE_EXCEPTION = 514;
        public const uint VX_TASK_WAITING = 3072;
        public const uint VX_TASK_SUCCESS = 3073;
        public const uint VX_TASK_QUEUE = 3074;
        public const uint VX_TASK_PROCESSING = 3075;
        public const uint VX_TASK_BUS = 3076;
        public const uint VX_TASK_RETRIES = 3077;
        public const uint VX_TASK_FAILED = 3078;
        public const uint VX_TASK_ID = 3079;
        public const uint VX_TASK_BROADCAST = 3080;
        public const uint VX_TASK_LDU = 3081;
        public const uint VX_TASK_LDU_ADDRESS = 3089;
        public const uint VX_TASK_TWI = 3090;
        public const uint VX_TASK_PIXEL_ORDER = 3091;
        public const uint VX_READ_TOO_LONG = 4353;
        public const uint VX_BAD_ADDRESS = 4354;
        public const uint VX_UPDATE_FAILED = 7937;
        public const uint VX_UPDATING = 7938;
        public const uint VX_NO_UPDATE = 7939;
        public const uint VX_MEMORY = 8192;
        public const uint VX_FILE_TOO_LONG = 8449;
        public const uint VX_NO_SPACE = 8450;
        public const uint VX_NO_SPACE_C = 8451;
        public const uint VX_NO_SPACE_D = 8452;
        public const uint VX_NO_SPACE_E = 8453;
        public const uint VX_NO_SPACE_F = 8454;
        public const uint VX_NO_SPACE_G = 8455;
        public const uint VX_URGENT_TOO_LONG = 10497;
        public const uint VX_BAD_PAGE = 14049;
        public const uint VX_PAGE_NOT_CONFIGURED = 14050;
        public const uint VX_TOO_MANY_PAGES = 14051;
        public const uint VX_BAD_ZONE = 14052;
        public const uint VX_ZONE_NOT_CONFIGURED = 14053;
        public const uint VX_BAD_PAGE_COUNT = 14054;
        public const uint VX_NOT_SUPPORTED = 14849;
        public const uint VX_PACKET_OK = 19279;
        public const uint VX_OPEN_SERIAL = 20481;
        public const uint VX_CONNECT_TIME_LIMIT = 20482;
        public const uint VX_FAILED_OPERATION = 20483;
        public const uint VX_INCONSISTENT_SYNC = 20484;
        public const uint VX_INCONSISTENT_SOURCE = 20485;
        public const uint VX_INCONSISTENT_DESTINATION = 20486;
        public const uint VX_INCONSISTENT_ID = 20487;
        public const uint VX_INCONSISTENT_MAJOR = 20488;
        public const uint VX_INCONSISTENT_MINOR = 20489;
        public const uint VX_INCONSISTENT_SUM = 20496;
        public const uint VX_ABORTED = 20497;
        public const uint VX_NO_PLAY_LIST = 20498;
        public const uint VX_UNEXPECTED_FORMAT = 20499;
        public const uint VX_COMMUNICATION = 20736;
        public const uint VX_OPEN_FILE = 20737;
        public const uint VX_EMPTY_FILE = 20738;
        public const uint VX_TIME_NOT_SET = 20993;
        public const uint VX_NO_ANSWER = 21061;
        public const uint VX_NOTHING_PLAYS = 26369;
        public const uint VX_PLAYING_NOT_OPENED = 26370;
        public const uint VX_PLAYING_TOO_LONG = 26371;
        public const uint VX_FORMAT_FAILED = 29185;
        public const uint VX_MAKE_FOLDER_FAILED = 29441;
        public const uint VX_RENAME_FAILED = 29697;
        public const uint VX_RENAME_PATH = 29698;
        public const uint VX_MOVE_FAILED = 29953;
        public const uint VX_DELETE_FAILED = 30209;
        public const uint VX_LIST_FAILED = 31489;
        public const uint VX_NO_DRIVE_INFORMATION = 32001;
        public const uint VX_FILE_GONE = 32257;
        public const uint VX_BUFFER_3_READY = 33537;
        public const uint VX_BUFFER_1_READY = 33538;
        public const uint VX_BUFFER_1_READY_TOO = 33539;
        public const uint VX_NO_TICKER = 33541;
        public const uint VX_BUFFER_FULL = 33542;
        public const uint VX_BAD_TICKER_DATA = 33543;
        public const uint VX_PROCESS_OK = 36864;
        public const uint VX_SIGN_SYNC = 36865;
        public const uint VX_SIGN_SUM = 36866;
        public const uint VX_SIGN_ADDRESS = 36867;
        public const uint VX_UNKNOWN_MAJOR = 36868;
        public const uint VX_UNKNOWN_MINOR = 36869;
        public const uint VX_PACKET_LENGTH = 36870;
        public const uint VX_FILE_NOT_EXISTS = 36872;
        public const uint VX_END_OF_FILE = 36873;
        public const uint VX_SIGN_FILE_NOT_OPENED = 36880;
        public const uint VX_COMMAND_NOT_SUPPORTED = 36881;
        public const uint VX_SIGN_WRITE_FAILED = 36882;
        public const uint VX_CHUNK_SIZE = 36883;
        public const uint VX_CHUNK_NUMBER = 36884;
        public const uint VX_SIGN_DELETE_FAILED = 36885;
        public const uint VX_LOGIN_WANTED = 36912;
        public const uint VX_WRONG_PASSWORD = 36913;
        public const uint VX_WRONG_USER = 36914;
        public const uint VX_WRONG_OLD_PASSWORD = 36915;
        public const uint VX_IN_USE = 36917;
        public const uint VX_NO_PERMISSION = 36918;
        public const uint VX_PASSWORD_KEY = 43521;
        public const uint VX_ONLY_AT_START = 43522;
        public const uint VX_FTP = 45313;
        public const uint VX_HTTP = 45314;
        public const uint VX_FILE_LOCKED = 49410;
        public const uint VX_LOCK_WANTED = 49411;
        public const uint VX_FILE_DATABASE = 49952;
        public const uint VX_USER_OR_PASSWORD = 49968;
        public const uint VX_ADD_TASK = 49984;
        public const uint VX_TASK_QUEUE_FULL = 65535;
        public const uint VX_MODE_BY_STATISTICS = 241;
        public const uint VX_LEVEL_PIXEL_OR_TILE = 2;
        public const uint VX_LEVEL_TEMPERATURE = 3;
        public const uint VX_WARING_MAINBOARD = 0;
        public const uint VX_WARING_TILE = 1;
        public const uint VX_WARING_PIXELS = 2;
        public const uint VX_WARING_SIGNALS = 3;
        public const uint VX_WARING_NO_POSITION = 255;
        public const uint VX_LAST_TILE = 494;
        public const uint VX_ALL_TILES = 65535;
        public const uint VX_TRAFFIC_MONITOR = 4;
        public const uint VX_TRAFFIC_FLOW_QUERY = 8;
        public const uint VX_TRAFFIC_PHASE = 31;
        public const uint VX_TRAFFIC_STATUS_FILE = 87117;
        public const uint VX_TRAFFIC_MONITOR_FILE = 87107;
        public const uint VX_TRAFFIC_REAL_FILE = 86612;
        public const uint VX_UPGRADE_FAILED = 4294967295;

        /// <summary>What helps against a result; nothing for one that says all itself.</summary>
        public static readonly IReadOnlyDictionary<uint, string> Advice = new Dictionary<uint, string>
        {
            [2] = "look at the arguments: a text, path or payload may be too long",
            [3074] = "wait until the other tasks of the tiles are done",
            [3075] = "the tile is still at it: wait, then look at it with tile status",
            [3076] = "check the cable and the power of the tile, and try once more",
            [3077] = "check the cable and the power of the tile, and try once more",
            [3078] = "look at the tile with tile status; its calibration may be locked",
            [3080] = "name one tile",
            [3089] = "check the number of the tile, and its port",
            [3091] = "check --module and --kind: the file is not in the order of this tile",
            [8449] = "send the file in parts, or smaller",
            [8450] = "free some room on that drive with rm, or write to another drive",
            [8451] = "free some room on that drive with rm, or write to another drive",
            [8452] = "free some room on that drive with rm, or write to another drive",
            [8453] = "free some room on that drive with rm, or write to another drive",
            [8454] = "free some room on that drive with rm, or write to another drive",
            [8455] = "free some room on that drive with rm, or write to another drive",
            [14049] = "this sign may have fewer pages: see zone list",
            [14050] = "divide the page first, with zone divide",
            [14052] = "this sign may have fewer zones on a page: see zone list",
            [14053] = "divide the page into more zones, with zone divide",
            [14849] = "this sign does not know the command; its firmware may be older or newer",
            [20483] = "try once more; the sign may have been busy",
            [20484] = "is that the port of a sign? Look at its reply with raw",
            [20736] = "check address, port, power and cable; give a slow line more time with --timeout and --retries",
            [20737] = "check that the file on this PC, or the folder it goes to, is there and may be used",
            [20738] = "the sign takes no empty file",
            [20993] = "set a time that exists; clock --set takes YYYY-MM-DD HH:MM:SS",
            [29185] = "check the letter of the drive; try once more",
            [29441] = "check drive and path; a file may have that name",
            [29697] = "check that the file is there and the new name is not",
            [29698] = "the new name belongs into the same folder",
            [29953] = "check that the file and the new folder are there, and the new name is not",
            [30209] = "check drive, folder and name of the file on the sign",
            [31489] = "check drive, folder and name of the file on the sign",
            [32001] = "this sign may not have that drive: try df alone",
            [32257] = "check drive, folder and name of the file on the sign",
            [33541] = "start the ticker first",
            [33542] = "wait until what runs has left the face",
            [33543] = "send less text",
            [36866] = "noise on the line: check cable and speed",
            [36867] = "check --destination",
            [36868] = "this sign does not know the command; its firmware may be older or newer",
            [36869] = "this sign does not know the command; its firmware may be older or newer",
            [36870] = "try a smaller --chunk",
            [36872] = "check drive, folder and name of the file on the sign",
            [36880] = "check drive, folder and name of the file on the sign",
            [36881] = "this sign cannot do that: look at its kind, its firmware and the arguments",
            [36882] = "check that the drive is there and has room",
            [36883] = "look at the sizes that you give, or try a smaller --chunk",
            [36885] = "check drive, folder and name of the file on the sign",
            [36912] = "the sign wants a login first: see login",
            [36913] = "check the password; case counts",
            [36914] = "check the name of the user",
            [36915] = "check the old password",
            [36917] = "somebody else is using the sign: wait, and try once more",
            [36918] = "log in as a user who may do this",
            [65535] = "wait until the other tasks of the tiles are done",
        };

        /// <summary>The bytes of each structure.</summary>
        public static readonly IReadOnlyDictionary<Type, int> Sizes = new Dictionary<Type, int>
        {
            [typeof(vxApiConfig)] = 192,
            [typeof(TileFileHeader)] = 32,
            [typeof(TileStaRecord)] = 96,
            [typeof(PlayLogRecord)] = 388,
            [typeof(SignLogRecord)] = 376,
            [typeof(TempLogRecord)] = 76,
            [typeof(TileInfoRecord)] = 332,
            [typeof(EventLogRecord)] = 128,
            [typeof(RadarLogRecord)] = 28,
            [typeof(TJRadarLogRecord)] = 56,
            [typeof(BatInfoLogRecord)] = 48,
            [typeof(TileTaskState)] = 4,
            [typeof(vxPixelRow)] = 132,
            [typeof(ProjectExtra)] = 20,
            [typeof(SCH)] = 18,
            [typeof(VXPLAYLIST_FILE_INFO)] = 5384,
            [typeof(VXPLAYLIST_ITEM)] = 257,
            [typeof(vxCommunicationSet)] = 84,
            [typeof(vxStatusRecord)] = 96,
            [typeof(vxWaringLogRow)] = 380,
            [typeof(vxWaringReportRow)] = 392,
            [typeof(TileStatRecord)] = 6,
            [typeof(TilePixelRecord)] = 18,
            [typeof(CompactPixelRecord)] = 6,
            [typeof(TilePixelFileHeader)] = 32,
            [typeof(TilePixelBlockHeader)] = 64,
            [typeof(vxCrayState)] = 6,
            [typeof(TrafficDumpHeader)] = 12,
            [typeof(TrafficLogEntry)] = 380,
            [typeof(TrafficTempEntry)] = 128,
            [typeof(ZoneHead)] = 8,
            [typeof(ZoneEntry)] = 12,
            [typeof(DisplayHead)] = 32,
            [typeof(ContentHead)] = 8,
            [typeof(SpeZoneHead)] = 12,
        };

        /// <summary>The version of the library, a constant text: "2.3.10 2020-05-13".</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern IntPtr vxAPIVersion();

        /// <summary>
        /// Copies *config into the calling thread's record and marks it initialised. Nothing is sent; values out of
        /// range are put right by the commands, in the thread's record. A later call replaces the record, abortFlag
        /// included. Returns 0, 1 when the thread's records cannot be made, VX_ARGUMENTS for null.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxInitAPI(ref vxApiConfig config);

        /// <summary>Does nothing; returns 0. A thread's records go when the thread ends.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxFreeAPI();

        /// <summary>
        /// The calling thread's live record, made on demand: the way to reach abortFlag after vxInitAPI has copied it.
        /// which: vxThreadRecord. Null for any other value, or when memory runs out. The first byte of the state says
        /// whether it holds the sign's properties (see vxInitProperty): a thread that turns to another sign sets it to
        /// 0, since vxInitAPI leaves it as it is.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern IntPtr vxTLSGet(int which);

        /// <summary>Start and stop socket support. Loading the library starts it; both return 0.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSocketup();

        /// <summary>Start and stop socket support. Loading the library starts it; both return 0.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCleanSocket();

        /// <summary>
        /// Writes a text message of size bytes to the file path, in the file form ("QZ00SAX"). The text goes in as it
        /// stands, control bytes included. A size of 0 gives VX_ARGUMENTS.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowMsgToNmg([In, Out] byte[] text, uint size, string path, int font, uint colour,
            uint mode, uint staySec);

        /// <summary>
        /// Wraps a picture file of any type, unchanged, into an NMG file in the transmission form.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowBmpToNmg(string bmpPath, string nmgPath, uint mode, uint staySec);

        /// <summary>The same in the file form. Note the order of staySec and mode.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBmp2Nmg(string bmpPath, string nmgPath, ushort staySec, byte mode);

        /// <summary>Turns the face dark, and lets it show again what the sign plays.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBlackScreen();

        /// <summary>Turns the face dark, and lets it show again what the sign plays.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEndBlackScreen();

        /// <summary>Starts the sign's controller again; the second form starts it cold.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxResetSystem();

        /// <summary>Starts the sign's controller again; the second form starts it cold.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxResetSystemCool();

        /// <summary>
        /// Resets the sign to what its data flash holds and waits for the end of it: up to 100 polls, 30 ms apart.
        /// onProgress is called after each with its number from 0 on, and with 100 at the end; progressTotal becomes
        /// 100 and progressPos the number. Returns the sign's refusal of the reset, or the result of the last poll.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxResetSystemToDataFlash();

        /// <summary>Power of the face: off for 0, on otherwise; and its two state bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPowerOnOff(sbyte on);

        /// <summary>Power of the face: off for 0, on otherwise; and its two state bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetPowerState(out byte first, out byte second);

        /// <summary>Brightness: one level, two, or 8 bytes for the sides of the sign.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBrightAdjust(byte level);

        /// <summary>Brightness: one level, two, or 8 bytes for the sides of the sign.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBrightAdjustEx(byte first, byte second);

        /// <summary>Brightness: one level, two, or 8 bytes for the sides of the sign.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBrightAdjustSides([In, Out] byte[] sides);

        /// <summary>Serial speed of the sign. The thread's own baudRate stays as it is.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxChangeBaudRate(byte rateCode);

        /// <summary>Checking of the sign's Ethernet line.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetEthCheck(byte value);

        /// <summary>Checking of the sign's Ethernet line.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadEthCheck(out byte first, out byte second);

        /// <summary>Switches the sign between online and offline operation; mode is the sign's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSwitchOnlineOffline(byte mode);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetBeacon(ref ulong value);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetBeacon([In, Out] byte[] @out);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetSignBeacon(ref ulong value);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetSignBeacon([In, Out] byte[] @out);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetExternalEquipment(ref ulong value);

        /// <summary>
        /// Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
        /// answer, 8 bytes at most; the rest of out stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetExternalEquipment([In, Out] byte[] @out);

        /// <summary>Sets the generator. out, if not null, gets up to 8 bytes of the sign's answer.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGeneratorSet(byte first, byte second, [In, Out] byte[] @out);

        /// <summary>Sets or reads the commit status. out, if not null, gets one byte.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCommitStatusRW(byte first, byte second, [In, Out] byte[] @out);

        /// <summary>The LCS setting and the two FH settings.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetLCS(byte value);

        /// <summary>The LCS setting and the two FH settings.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetLCS(out byte @out);

        /// <summary>The LCS setting and the two FH settings.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetFH(byte first, byte second);

        /// <summary>The LCS setting and the two FH settings.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetFH(out byte first, out byte second);

        /// <summary>Speaks dataLength bytes of voice data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayVoice(byte first, byte second, [In, Out] byte[] data, byte dataLength);

        /// <summary>
        /// Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTileTest(byte testCode, byte port, ushort tile);

        /// <summary>
        /// Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTileCMD(byte command, byte port, ushort tile, [In, Out] byte[] data,
            uint dataLength);

        /// <summary>
        /// Reads a file of a tile. VX_NO_RECORD when a local file cannot be made or written, VX_NO_MAGIC when what
        /// comes does not begin like a file or would have 4 GB and more. A tile that sends less than it announced
        /// leaves a shorter file. A calibration that cannot be converted is no failure; then only the tile's form is
        /// there. extra is the tile's. A tile is asked for as many pieces of 264 bytes as it announces, with onProgress
        /// behind each: millions, if it says so.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTileReadFileEx(string path, byte fileType, byte port, ushort tile,
            byte extra);

        /// <summary>
        /// Writes a file to a tile. VX_NO_RECORD when the local file cannot be read, for a calibration also when it
        /// cannot be converted, when the tile's status cannot be read or when the tile is locked; nothing has been sent
        /// then. What an earlier call converted stays when there is nothing to take its place. An empty file gives 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTileWriteFileEx(string path, byte fileType, byte port, ushort tile,
            byte extra);

        /// <summary>
        /// Two steps by which a tile takes over coefficients. The first is command 15. The second converts the
        /// calibration at path, sends the commands 16 and 17 with params, and reads the tile's coefficients into the
        /// local file "c:/port&lt;port&gt;/&lt;tile as four hexadecimal digits&gt;.mcc" in 21 tries at most; params[64]
        /// other than 0 ends it after command 16. It gives 0 whatever comes of that, but 1 when only the last try
        /// succeeds. reserved is not used.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTilePHYWriteCoefficent1(byte port, ushort tile);

        /// <summary>
        /// Two steps by which a tile takes over coefficients. The first is command 15. The second converts the
        /// calibration at path, sends the commands 16 and 17 with params, and reads the tile's coefficients into the
        /// local file "c:/port&lt;port&gt;/&lt;tile as four hexadecimal digits&gt;.mcc" in 21 tries at most; params[64]
        /// other than 0 ends it after command 16. It gives 0 whatever comes of that, but 1 when only the last try
        /// succeeds. reserved is not used.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDirectTilePHYWriteCoefficent2(string path, byte port, ushort tile, ulong reserved,
            [In, Out] byte[] @params, uint paramsLength);

        /// <summary>
        /// Sends bytes as they are and waits timeoutMs of the configuration for whatever comes back, which is dropped:
        /// 0 for any byte, VX_NO_ANSWER for none, VX_ABORTED when abortFlag ended the wait.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteCmdBuf([In, Out] byte[] buffer, uint length);

        /// <summary>Collection: sends 8 bytes of data; reads up to 38 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraCollectCtrl([In, Out] byte[] data, byte board);

        /// <summary>Collection: sends 8 bytes of data; reads up to 38 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraCollectRead([In, Out] byte[] buffer, byte board);

        /// <summary>Inputs and outputs: sends 16 bytes of data; reads up to 68 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraIOCtrl([In, Out] byte[] data, byte board);

        /// <summary>Inputs and outputs: sends 16 bytes of data; reads up to 68 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraIORead([In, Out] byte[] buffer, byte board);

        /// <summary>Unlocks the Wi-Fi module with length bytes of data; *result becomes its answer.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraWifiUnlock([In, Out] byte[] data, byte length, out uint result);

        /// <summary>
        /// The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them
        /// with up to 44 of the answer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraWifiSetInfo([In, Out] byte[] wifiInfo);

        /// <summary>
        /// The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them
        /// with up to 44 of the answer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraWifiGetInfo([In, Out] byte[] wifiInfo);

        /// <summary>
        /// The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them
        /// with up to 44 of the answer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExtraWifiReset();

        /// <summary>Formats a drive, by its letter.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxFormatDrive(byte drive);

        /// <summary>
        /// What a drive holds: two numbers and 12 bytes that only the sign interprets. A null output is left out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetDriveInfo(byte drive, [In, Out] uint[] first, [In, Out] uint[] second,
            [In, Out] byte[] extra);

        /// <summary>
        /// Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCreateDir(byte[] path);

        /// <summary>
        /// Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxRename(byte[] from, byte[] to);

        /// <summary>
        /// Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMove(byte[] from, byte[] to);

        /// <summary>Deletes a file on the sign.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDelete(byte[] path);

        /// <summary>Deletes the play list "c:\playlist\sequent&lt;index&gt;.sys".</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLDeleteByIndex(byte index);

        /// <summary>Delete the content files of one kind; which of them is the sign's selector.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDelTextFiles(byte selector);

        /// <summary>Delete the content files of one kind; which of them is the sign's selector.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDelStringFiles(byte selector);

        /// <summary>Delete the content files of one kind; which of them is the sign's selector.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDelPictureFiles(byte selector);

        /// <summary>Delete the content files of one kind; which of them is the sign's selector.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDelArrpicFiles(byte selector);

        /// <summary>
        /// Deletes all that the sign plays. With mode 1 out is required and gets a number; with any other it is not
        /// used.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxClearAllPlayFiles(byte mode, [In, Out] ushort[] @out);

        /// <summary>0 when the file is there.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxIsFileExist(byte[] path);

        /// <summary>
        /// The entries of a folder: total gets their number, entries up to maxEntries records of 32 bytes as the sign
        /// made them. The second form asks for count entries from start on; of its path 252 bytes go out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetDirFile(byte[] path, out uint total, [In, Out] byte[] entries, uint maxEntries);

        /// <summary>
        /// The entries of a folder: total gets their number, entries up to maxEntries records of 32 bytes as the sign
        /// made them. The second form asks for count entries from start on; of its path 252 bytes go out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetDirFileEx(byte[] path, ushort start, ushort count, out uint total,
            [In, Out] byte[] entries, uint maxEntries);

        /// <summary>
        /// Writes the entries of a folder into a local file: "FL", their number (16 bits), the file's size and 0 (32
        /// bits each), then the entries. A folder of more than 20 entries lists the first 20 twice, and its last
        /// entries are missing. The header is written in any case. Returns VX_OPEN_FILE when the local file cannot be
        /// made, VX_CALL when it cannot be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLstFolder(string localFile, byte[] signPath);

        /// <summary>
        /// Reads the listing of a folder with long names, as the sign makes it, into a local file; results of
        /// vxReadSpecPathFile. It is a second connection to the sign, beside the first.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetDirLongFileEx(byte[] path, string localFile);

        /// <summary>
        /// Calls callback for each entry of a long listing. Returns what the last call gave, whatever came before it;
        /// the result of vxGetDirLongFileEx when that fails, VX_OPEN_FILE when the temporary file cannot be read,
        /// VX_FILE_FORMAT when it is no listing.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLstLongFolderCB(byte[] signPath, VxOnFolderEntry callback, IntPtr user);

        /// <summary>
        /// A name for a temporary file: folder, process id, a time stamp that does not repeat in this process, '.' and
        /// the extension. The folder is that of onTempPath if set, else the system's. Cut to outLength, always
        /// terminated. Returns 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetPCTempFilename([In, Out] byte[] @out, uint outLength, string extension);

        /// <summary>
        /// The short (8.3) name of an existing file, without its folder. out, if not null, gets at most outLength bytes
        /// of it, without terminator. Returns the length of the short name, 0 for a file that is not there.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetShortFileName(string path, [In, Out] byte[] @out, uint outLength);

        /// <summary>Waits ms milliseconds.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern void vxSleep(uint ms);

        /// <summary>
        /// The local time as DOS date (year - 1980 in bits 9-15, month 5-8, day 0-4) and DOS time (hour 11-15, minute
        /// 5-10, seconds / 2 in 0-4). Nothing when either is null, or for a year that has no place in it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern void vxGetDOSTime(out ushort date, out ushort time);

        /// <summary>
        /// The local time as 8 bytes: year (little-endian 16 bits), month, day, hour, minute, second, day of week (0
        /// Sunday).
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern void vxGetDateTime([In, Out] byte[] @out);

        /// <summary>
        /// A DOS date (low 16 bits) and time (high 16 bits) as text "2020-05-13 10:20:30". Returns 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTM_DecodeDosTime(uint dosDateTime, [In, Out] byte[] @out, byte outLength);

        /// <summary>
        /// The names of the serial ports of this PC with '|' between them. out is cleared first; a list that fills it
        /// has no terminator. Returns 0, VX_ARGUMENTS for a null out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEnumSerial([In, Out] byte[] @out, uint outLength);

        /// <summary>printf into out, cut to outLength, always terminated. Returns 0.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPrintBuf([In, Out] byte[] @out, uint outLength, string format);

        /// <summary>
        /// fopen, for this process alone; null when it fails, and for a folder. Close the stream with fclose.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern IntPtr vxFOpen(string path, string mode);

        /// <summary>
        /// Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the
        /// file copied. failIfExists not 0 leaves an existing target alone.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxFSDelete(string path);

        /// <summary>
        /// Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the
        /// file copied. failIfExists not 0 leaves an existing target alone.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOSCreateDir(string path);

        /// <summary>
        /// Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the
        /// file copied. failIfExists not 0 leaves an existing target alone.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOSCopyFile(string from, string to, byte failIfExists);

        /// <summary>
        /// The size of a file in bytes, 0 for one that is not there, cannot be read or has 4 GB and more.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOSGetFileSize(string path);

        /// <summary>
        /// Takes a path apart: drive ("C:"), folder with its last separator, name, extension with its dot. '/' and '\'
        /// both separate. A null buffer with size 0 leaves its part out. Returns 0, 22 for a null path or a buffer and
        /// size that do not go together, 34 when a part does not fit; on failure all buffers are empty texts.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern int vxStr_splitpath(string path, [In, Out] byte[] drive, byte driveSize,
            [In, Out] byte[] folder, byte folderSize, [In, Out] byte[] name, byte nameSize, [In, Out] byte[] extension,
            byte extensionSize);

        /// <summary>
        /// Milliseconds since the system started, modulo 2^32; seconds since this function was first called.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSysUpTimeMS();

        /// <summary>
        /// Milliseconds since the system started, modulo 2^32; seconds since this function was first called.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSystemUpTimeSec();

        /// <summary>
        /// A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it,
        /// is 63 characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the
        /// value is none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing,
        /// the file included, and leaves the rest of the file as it was. The new file is written beside the old one and
        /// takes its place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also
        /// when the file could not be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetINIWithString(string section, string key, string defaultValue, string iniPath,
            [In, Out] byte[] @out);

        /// <summary>
        /// A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it,
        /// is 63 characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the
        /// value is none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing,
        /// the file included, and leaves the rest of the file as it was. The new file is written beside the old one and
        /// takes its place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also
        /// when the file could not be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetINIWithInt(string section, string key, uint defaultValue, string iniPath,
            [In, Out] uint[] @out);

        /// <summary>
        /// A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it,
        /// is 63 characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the
        /// value is none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing,
        /// the file included, and leaves the rest of the file as it was. The new file is written beside the old one and
        /// takes its place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also
        /// when the file could not be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetINIWithString(string section, string key, string value, string iniPath);

        /// <summary>
        /// Reads up to size bytes and cuts them behind the first line feed; the rest of buffer is cleared, and the
        /// stream goes on one byte behind the line feed's successor, whatever that byte was. Without a line feed the
        /// stream goes on behind what was read. Returns the bytes of the line, 0 at the end or for a null or zero
        /// argument.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadFileLine(IntPtr stream, [In, Out] byte[] buffer, uint size);

        /// <summary>
        /// The path that a local file gets on the sign: "&lt;drive&gt;:\&lt;type letter&gt;\&lt;short name&gt;". The
        /// type letter follows from the file's first bytes (P picture, T text, A animation, Q, F other). shortName gets
        /// 12 bytes, without terminator when full. Returns 0, VX_ARGUMENTS unless localPath and out are set and
        /// outLength is 20 at least, VX_OPEN_FILE when the file cannot be opened.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMakeSignPath(string localPath, [In, Out] byte[] @out, uint outLength, byte drive,
            [In, Out] byte[] typeLetter, [In, Out] byte[] shortName);

        /// <summary>
        /// The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then
        /// cleared on the sign, EventLog excepted.  These readers take the first 8 bytes of a page, and so does every
        /// application that relies on them: a row whose text is longer does not reach the callback, and the table is
        /// cleared all the same. An application that wants the rows asks vxReadDB itself, with room for them ("select
        /// ... limit 10 offset 0"), and clears the table when it is done.  What the callback returns is not looked at.
        /// Results: that of the query for the number of rows when it fails, with nothing read and nothing cleared; else
        /// that of the last query for a page.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPlayLogExt(ulong reserved, uint user, int mode, VxOnPlayLog callback);

        /// <summary>
        /// The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then
        /// cleared on the sign, EventLog excepted.  These readers take the first 8 bytes of a page, and so does every
        /// application that relies on them: a row whose text is longer does not reach the callback, and the table is
        /// cleared all the same. An application that wants the rows asks vxReadDB itself, with room for them ("select
        /// ... limit 10 offset 0"), and clears the table when it is done.  What the callback returns is not looked at.
        /// Results: that of the query for the number of rows when it fails, with nothing read and nothing cleared; else
        /// that of the last query for a page.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSignLog(ulong reserved, uint user, int mode, VxOnSignLog callback);

        /// <summary>
        /// The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then
        /// cleared on the sign, EventLog excepted.  These readers take the first 8 bytes of a page, and so does every
        /// application that relies on them: a row whose text is longer does not reach the callback, and the table is
        /// cleared all the same. An application that wants the rows asks vxReadDB itself, with room for them ("select
        /// ... limit 10 offset 0"), and clears the table when it is done.  What the callback returns is not looked at.
        /// Results: that of the query for the number of rows when it fails, with nothing read and nothing cleared; else
        /// that of the last query for a page.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTempLog(ulong reserved, uint user, int mode, VxOnTempLog callback);

        /// <summary>
        /// The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then
        /// cleared on the sign, EventLog excepted.  These readers take the first 8 bytes of a page, and so does every
        /// application that relies on them: a row whose text is longer does not reach the callback, and the table is
        /// cleared all the same. An application that wants the rows asks vxReadDB itself, with room for them ("select
        /// ... limit 10 offset 0"), and clears the table when it is done.  What the callback returns is not looked at.
        /// Results: that of the query for the number of rows when it fails, with nothing read and nothing cleared; else
        /// that of the last query for a page.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTileInfo(ulong reserved, uint user, int mode, VxOnTileInfo callback);

        /// <summary>
        /// The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then
        /// cleared on the sign, EventLog excepted.  These readers take the first 8 bytes of a page, and so does every
        /// application that relies on them: a row whose text is longer does not reach the callback, and the table is
        /// cleared all the same. An application that wants the rows asks vxReadDB itself, with room for them ("select
        /// ... limit 10 offset 0"), and clears the table when it is done.  What the callback returns is not looked at.
        /// Results: that of the query for the number of rows when it fails, with nothing read and nothing cleared; else
        /// that of the last query for a page.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadEventLog(ulong reserved, uint user, int mode, VxOnEventLog callback);

        /// <summary>
        /// The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails; VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log.
        /// vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign   vxReadNewRadarLog
        /// "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign   vxReadTJRadarLog      vxReadTJRadarLog2File into
        /// "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1                         are both 0 are
        /// passed over   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays
        /// on the sign   vxReadBatInfoLogII    the same; deleted on the sign
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadRadarLog(string localFolder, uint user, ulong reserved, VxOnRadarLog callback);

        /// <summary>
        /// The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails; VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log.
        /// vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign   vxReadNewRadarLog
        /// "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign   vxReadTJRadarLog      vxReadTJRadarLog2File into
        /// "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1                         are both 0 are
        /// passed over   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays
        /// on the sign   vxReadBatInfoLogII    the same; deleted on the sign
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadNewRadarLog(string localFolder, uint user, ulong reserved,
            VxOnRadarLog callback);

        /// <summary>
        /// The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails; VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log.
        /// vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign   vxReadNewRadarLog
        /// "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign   vxReadTJRadarLog      vxReadTJRadarLog2File into
        /// "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1                         are both 0 are
        /// passed over   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays
        /// on the sign   vxReadBatInfoLogII    the same; deleted on the sign
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTJRadarLog(string localFolder, uint user, ulong reserved,
            VxOnTJRadarLog callback);

        /// <summary>
        /// The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails; VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log.
        /// vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign   vxReadNewRadarLog
        /// "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign   vxReadTJRadarLog      vxReadTJRadarLog2File into
        /// "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1                         are both 0 are
        /// passed over   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays
        /// on the sign   vxReadBatInfoLogII    the same; deleted on the sign
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadBatInfoLog(string localFolder, uint user, ulong reserved, sbyte kind,
            VxOnBatInfoLog callback);

        /// <summary>
        /// The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails; VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log.
        /// vxReadRadarLog        "D:\RADARLog.log" as "RADAR.LOG"; stays on the sign   vxReadNewRadarLog
        /// "E:\RADAR.log" as "RADAR.LOG"; deleted on the sign   vxReadTJRadarLog      vxReadTJRadarLog2File into
        /// "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0 and 1                         are both 0 are
        /// passed over   vxReadBatInfoLog      the battery file of that kind as "DBATINFO.LOG" or "BATINFO.LOG"; stays
        /// on the sign   vxReadBatInfoLogII    the same; deleted on the sign
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadBatInfoLogII(string localFolder, uint user, ulong reserved, sbyte kind,
            VxOnBatInfoLog callback);

        /// <summary>
        /// Sends the files that a local batch file names, one after the other, with vxWriteSpecFile. The batch begins
        /// with 116 bytes ("MC", 2 bytes, then twice 1 in 32 bits); each 512 bytes behind them are a local path and a
        /// path on the sign, of 256 bytes each. Returns the first failure; VX_OPEN_FILE when the batch cannot be
        /// opened, VX_FILE_FORMAT when it does not begin like one.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxExecFileCMD(string localFile);

        /// <summary>
        /// The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The
        /// sign refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLogin(byte[] user, byte[] password);

        /// <summary>
        /// The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The
        /// sign refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLogout();

        /// <summary>
        /// The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The
        /// sign refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxChangePSW(byte[] user, byte[] oldPassword, byte[] newPassword);

        /// <summary>
        /// The servers that the sign knows: total gets their number, entries up to maxEntries records of 68 bytes as
        /// the sign made them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetAPIServerTable(out uint total, [In, Out] byte[] entries, uint maxEntries);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_LCGet(byte device, ushort registerNumber, [In, Out] ushort[] value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_LCSet(byte device, ushort registerNumber, ushort value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_TLSGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_TLSSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_ALCSGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_ALCSSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_MLCSGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reads and writes a register of a device of the class in the name.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_MLCSSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_VSLSGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_VSLSSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_TORGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_TORSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_VMSGet(byte device, byte section, ushort registerNumber,
            [In, Out] ushort[] value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_VMSSet(byte device, byte section, ushort registerNumber, ushort value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_PVMSGet(byte device, ushort registerNumber, [In, Out] ushort[] value);

        /// <summary>Reading VSLS is reading MLCS.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMB_PVMSSet(byte device, ushort registerNumber, ushort value);

        /// <summary>
        /// Moves a file. The local file's name, in upper or lower case, decides how:   MONITOR.GIF
        /// vxCurrentMsg2Gif(path, local), in both modes   PLAYFILE.PLS,     a package of a play list and its files:
        /// reading does nothing and returns 0, writing unpacks it   PLAYFILE.PLM      beside itself, sends the files to
        /// drive D and the list made of them, which plays at once. The                     first failure ends it.
        /// progressTotal is the number of all uploads, progressPos of those done.                     What is no
        /// package sends a SEQUENT.SYS that lies beside it.   TRAFFICLIGHT.SYS  the sign's beacon as a file: "LT",
        /// number of records (16 bits: 1, or 0 when the beacon could not                     be read), the file's size
        /// and 0 (32 bits each), then the 8 bytes of vxGetBeacon. Reading calls                     onProgress once,
        /// with 90 percent. A file without "LT" gives VX_FILE_FORMAT.   CONFIG.SYS        the sign's system file of
        /// that name   any other         vxReadSpecPathFile(path, local) or vxWriteSpecFile(path, local) path counts
        /// for the first and the last of these alone. Returns VX_NOT_INITIALISED for a null local or another mode,
        /// VX_OPEN_FILE when the local file cannot be opened or made, else what the commands used give.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxRWFile(string local, byte[] path, uint mode);

        /// <summary>
        /// Has onMessageToGif (vxApiConfig), with the settings 20 and 1000, turn the message that the sign shows now
        /// into the file gifPath. The message file is looked for in tempFolder, under the name that the sign tells,
        /// less any folder; it is "__BLANK.VXB" when nothing plays, and the result is then VX_NOTHING_PLAYS. The folder
        /// and the name are joined with a backslash. Returns what vxGetPlayingFileName gives, whatever the converter
        /// does.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCurrentMsg2Gif(string tempFolder, string gifPath);

        /// <summary>Asks for a task once. buffer gets as much of the answer as bufferSize takes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraGetResult(uint taskId, [In, Out] byte[] buffer, uint bufferSize);

        /// <summary>
        /// Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The
        /// command has 300000 ms, or timeoutMs.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraTileTest(byte testCode, byte port, ushort tile);

        /// <summary>
        /// Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The
        /// command has 300000 ms, or timeoutMs.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraTileCMD(byte command, byte port, ushort tile, [In, Out] byte[] data,
            uint dataLength);

        /// <summary>
        /// Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The
        /// command has 300000 ms, or timeoutMs.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraTileCMDTimeout(byte command, byte port, ushort tile, [In, Out] byte[] data,
            uint dataLength, uint timeoutMs);

        /// <summary>
        /// Commands without a task: one of the control board, and the mode in which brightness is synchronised.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraLDUCMD(byte command, byte value);

        /// <summary>
        /// Commands without a task: one of the control board, and the mode in which brightness is synchronised.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraSyncBriMode(byte mode);

        /// <summary>Shows a calibration picture: four numbers of the tile's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraPicCalShow(ushort a, ushort b, ushort c, ushort d);

        /// <summary>
        /// Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that
        /// lies on the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and
        /// port 255, and for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The
        /// first form has 300000 ms, the second timeoutMs, the third no limit.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraReadTileFile(string localPath, byte fileType, byte port, ushort tile,
            int skipFetch, [In, Out] uint[] detail);

        /// <summary>
        /// Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that
        /// lies on the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and
        /// port 255, and for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The
        /// first form has 300000 ms, the second timeoutMs, the third no limit.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraReadTileFileTimeout(string localPath, byte fileType, byte port, ushort tile,
            int skipFetch, [In, Out] uint[] detail, uint timeoutMs);

        /// <summary>
        /// Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that
        /// lies on the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and
        /// port 255, and for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The
        /// first form has 300000 ms, the second timeoutMs, the third no limit.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraReadTileFileExt(string localPath, byte fileType, byte port, ushort tile,
            byte extra, uint skipFetch, [In, Out] uint[] detail);

        /// <summary>
        /// Write a local file to a tile, or to all of a port; results of vxWriteSpecFileEx for the way to the sign's
        /// disk. VX_ARGUMENTS for port 255, and for a fileType above 10 but in the second form.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraWriteTileFile(string localPath, byte fileType, byte port, ushort tile,
            [In, Out] uint[] detail);

        /// <summary>
        /// Write a local file to a tile, or to all of a port; results of vxWriteSpecFileEx for the way to the sign's
        /// disk. VX_ARGUMENTS for port 255, and for a fileType above 10 but in the second form.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraWriteTileFileExt(string localPath, byte fileType, byte port, ushort tile,
            byte extra, [In, Out] uint[] detail);

        /// <summary>
        /// Write a calibration file to a tile. calParams: VX_CAL_PARAMS bytes for the tile, or null.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraWritePxlCal(string localPath, byte port, ushort tile, byte mode,
            [In, Out] uint[] detail, [In, Out] byte[] calParams);

        /// <summary>
        /// The same without waiting for the end: 0 as soon as the task's progress is 10 or more, after which
        /// vxOndraGetResult follows it. taskId becomes 0 at once and the task when it has started and the answer names
        /// one, whatever the result; null leaves it out. VX_COMMUNICATION when neither progress nor state changes for
        /// ten minutes. onProgress is not called; reserved is not used.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOndraWritePxlCalBurn(string localPath, byte port, ushort tile, byte mode,
            ulong reserved, [In, Out] byte[] calParams, [In, Out] uint[] taskId);

        /// <summary>Starts the sign's check, and tells how far it is, in percent.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBeginPixCheck();

        /// <summary>Starts the sign's check, and tells how far it is, in percent.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPixProgress(out byte percent);

        /// <summary>Fetch the sign's results, "D:\PXL.CSV" and "D:\SIGNAL.CSV", into a local file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPixResult(string local);

        /// <summary>Fetch the sign's results, "D:\PXL.CSV" and "D:\SIGNAL.CSV", into a local file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSignalResult(string local);

        /// <summary>
        /// A whole check: starts it, waits for its end with a poll each second (onProgress is called with each
        /// percentage below 100), and fetches both results. progressTotal becomes 4, progressPos the step. It takes as
        /// long as the sign takes; abortFlag ends it. Returns what starting or the last poll gives when it fails, else
        /// 0: a result that could not be fetched shows in the local files.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPxlChk(string pxlLocal, string signalLocal);

        /// <summary>
        /// The findings from one of the sign's sources, a row each. folder ends in a separator and gets the local
        /// files.    the CSV files   runs vxPxlChk into "PXL.CSV" and "SIGNAL.CSV"; a row for each line
        /// "number,x,y,...,"text","time""                   of the first, then for each "number,x,y,"text","time"" of
        /// the second; both deleted on the sign   the text file   "C:\PIXEL.SYS", deleted on the sign: a row for each
        /// line that tells of a port or a board, with the                   local time of the PC; one that all is well,
        /// or that too much is bad, is the last   the database    the table PixelStatus, which is then cleared; rows of
        /// more than 8 bytes do not arrive (see log.h)  Returns 0 with no rows when the sign has no such file; what the
        /// check, the transfer or the query gives when it fails; VX_OPEN_FILE when a local file cannot be opened.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPixelInfo(string folder, uint user, uint source, VxOnPixelInfo callback);

        /// <summary>
        /// The tables PixelStatus and PixelSignalErr, which stay as they are; rows of more than 8 bytes do not arrive
        /// (see log.h). Returns what the query for the number of rows gives when it fails; else the failure of a query
        /// for a page, if any.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPixelErrorReport(VxOnPixelError callback);

        /// <summary>
        /// Reads the file "F:\PL\SIGNAL.CSV" of the PC as vxReadPixelInfo would, and drops what it finds. Returns 0,
        /// also when the file is missing.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTestPattern();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReplayList();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReplayCurrFile();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayPause();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayContinue();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayNext();

        /// <summary>
        /// The play list: from its start, the current file again, pause, continue, next and previous file.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayPrevious();

        /// <summary>Within the current file: forward, back, one frame on.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayForword();

        /// <summary>Within the current file: forward, back, one frame on.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayBack();

        /// <summary>Within the current file: forward, back, one frame on.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayNextFrame();

        /// <summary>Plays the file name ahead of all others; its first 12 characters count.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlayPriority(byte first, byte second, byte[] name);

        /// <summary>Plays the play list of that number, and tells which one plays.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlaySpePlaylist(byte index);

        /// <summary>Plays the play list of that number, and tells which one plays.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSpePlayListIndex(out byte @out);

        /// <summary>
        /// The name of the file that plays, and of the next. out is cleared and gets outLength bytes at most; a name
        /// that fills it has no terminator. VX_NOTHING_PLAYS when nothing plays.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetPlayingFileName([In, Out] byte[] @out, uint outLength);

        /// <summary>
        /// The name of the file that plays, and of the next. out is cleared and gets outLength bytes at most; a name
        /// that fills it has no terminator. VX_NOTHING_PLAYS when nothing plays.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetNextPlayFileName([In, Out] byte[] @out, uint outLength);

        /// <summary>
        /// Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSoundCtrl(byte first, byte second, byte third);

        /// <summary>
        /// Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlaySoundFile(ulong value, byte[] name);

        /// <summary>
        /// Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPlaySoundFile4j(ref ulong value, byte[] name);

        /// <summary>
        /// Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxAdjustVolume(byte volume);

        /// <summary>
        /// Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCurVolume(out byte @out);

        /// <summary>Timing runs.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxBeginTiming(byte first, byte second, byte third, byte fourth);

        /// <summary>Timing runs.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxStopTiming();

        /// <summary>Timing runs.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPauseTiming();

        /// <summary>Timing runs.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxContinueTiming();

        /// <summary>
        /// Has the sign take a picture of its face and reads it, a JPEG, into a local file. The sign gets up to 10
        /// tries, 200 ms apart. The reading is a second connection to the sign, beside the first. Returns VX_OPEN_FILE
        /// when the local file cannot be made, else the result of the last try. The second name stands for old
        /// applications.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCurScreenshot(string localFile);

        /// <summary>
        /// Has the sign take a picture of its face and reads it, a JPEG, into a local file. The sign gets up to 10
        /// tries, 200 ms apart. The reading is a second connection to the sign, beside the first. Returns VX_OPEN_FILE
        /// when the local file cannot be made, else the result of the last try. The second name stands for old
        /// applications.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCurScreentshot(string localFile);

        /// <summary>
        /// Reads the radar log, records of 16 bytes, into a local file; 50000 records at most. onProgress is called
        /// after each 5 of them, with one percent for 500. VX_OPEN_FILE when the local file cannot be made. The second
        /// deletes the log.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTJRadarLog2File(string localFile);

        /// <summary>
        /// Reads the radar log, records of 16 bytes, into a local file; 50000 records at most. onProgress is called
        /// after each 5 of them, with one percent for 500. VX_OPEN_FILE when the local file cannot be made. The second
        /// deletes the log.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxClearTJRadarLog();

        /// <summary>
        /// The settings of the default screen, two numbers: how long the default picture shows and how long the screen
        /// is black. A sign that cannot be read gives two zeros and 0. Writing replaces the sign's file; it returns 1
        /// when the temporary file cannot be made, else the result of sending it. Both use a second connection to the
        /// sign, beside the first.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadDefaultScreenSet([In, Out] ushort[] @out);

        /// <summary>
        /// The settings of the default screen, two numbers: how long the default picture shows and how long the screen
        /// is black. A sign that cannot be read gives two zeros and 0. Writing replaces the sign's file; it returns 1
        /// when the temporary file cannot be made, else the result of sending it. Both use a second connection to the
        /// sign, beside the first.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteDefaultScreenSet([In, Out] ushort[] @in);

        /// <summary>
        /// Plays a program. text3 may be null, and text4 too; the others give VX_ARGUMENTS. Both forms are one command
        /// to the player: the flag goes where the second form has the length of its text4.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCorePlayProgram(byte[] text1, byte[] text2, byte[] text3, byte flag);

        /// <summary>
        /// Plays a program. text3 may be null, and text4 too; the others give VX_ARGUMENTS. Both forms are one command
        /// to the player: the flag goes where the second form has the length of its text4.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCorePlayWindowProgram(byte[] text1, byte[] text2, byte[] text3, byte[] text4);

        /// <summary>
        /// Ends the program of that name. Of the name go as many bytes as the low 8 bits of its length say: 44 of 300.
        /// A null names none.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreStopPlay(byte[] name);

        /// <summary>Plays an emergency program, with text3 as above, and ends it.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCorePlayEmergencyProgram(byte[] text1, byte[] text2, byte[] text3);

        /// <summary>Plays an emergency program, with text3 as above, and ends it.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreStopEmergencyProgram();

        /// <summary>
        /// Switches to a program, and the mode of switching. VX_ARGUMENTS for a mode above 2.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreSwitchProgram(byte[] name, byte mode);

        /// <summary>
        /// Switches to a program, and the mode of switching. VX_ARGUMENTS for a mode above 2.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreSwitchMode(byte mode);

        /// <summary>The mode of the windows, with length bytes of data; none if data is null.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreWinMode(byte mode, [In, Out] byte[] data, uint length);

        /// <summary>Tells the player about a project. name may be null, extra not.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreProjectInfo(byte[] name, ushort value1, ushort value2);

        /// <summary>Tells the player about a project. name may be null, extra not.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreProjectInfoEx(byte[] name, ushort value1, ushort value2,
            ref ProjectExtra extra);

        /// <summary>How far the synchronising of a project is: two numbers of the player's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCorePrjSyncProgress(out byte out1, out byte out2);

        /// <summary>
        /// The properties of a file, whose name goes over whole and may be null; and what plays. Both write outLength
        /// bytes at most, as many as the player sends, and leave the rest of out as it was. VX_ARGUMENTS for an
        /// outLength of 0. The first counts the bytes of the reply's extended part but takes them from where the
        /// reply's payload begins.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreGetFileProperty(byte[] name, [In, Out] byte[] @out, uint outLength);

        /// <summary>
        /// The properties of a file, whose name goes over whole and may be null; and what plays. Both write outLength
        /// bytes at most, as many as the player sends, and leave the rest of out as it was. VX_ARGUMENTS for an
        /// outLength of 0. The first counts the bytes of the reply's extended part but takes them from where the
        /// reply's payload begins.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCoreGetPlayInfo([In, Out] byte[] @out, uint outLength);

        /// <summary>
        /// Binds the thread's list to &lt;dir&gt;/&lt;fileName&gt; and loads it. A file that is not there is created
        /// empty, a directory is not; what cannot be parsed gives an empty list and 0. Backslashes of dir become
        /// slashes. 256 when the file cannot be made.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLInit(string dir, string fileName);

        /// <summary>
        /// Writes the list to its file. 0, whatever became of the file; 1 when memory ran out. The new file is written
        /// beside the old one and takes its place when it is whole, so that a full disk or a power cut leaves the old
        /// one.  Not all comes back. Of the files in a group's default child only the first does. In a group with sub-
        /// groups the others come back too, each in the place of one of the last sub-groups, and all of them without
        /// stay time and effects.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLSave();

        /// <summary>
        /// Replaces the list with the XML file at path, with the bound file if path is null. 1 when it cannot be opened
        /// or parsed, or memory ran out; the list is empty then.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLoadSYSFromXML(string path);

        /// <summary>
        /// Replaces the list with a sequence file of version 4 or 6. 0 also when the file cannot be opened or is of no
        /// such version: the list then stays. 1 for a null path, 0xFFFFFFFF (-1) when memory ran out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLoadSYSFromLED(string path);

        /// <summary>
        /// Replaces the list with a PC play list of version 4, 5 or 6 and copies the files that it names into the play
        /// list directory, which is made if it is missing; a name that would leave the directory is not copied. Results
        /// as above.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLoadPLSFromPC(string path);

        /// <summary>
        /// Adds a group (path "/") or a sub-group (path "/G/") at index, or at the end. VX_FAILED_OPERATION when the
        /// name is taken, in the way the list looks for it, or G is unknown: a sub-group is compared with the children
        /// of the group before G, for the first group with the groups.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLAddGroup(byte[] path, ushort index, byte[] name, byte playType);

        /// <summary>Gives a group, with its default child, or a sub-group another name and type.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLModifyGroup(byte[] path, byte[] name, byte playType);

        /// <summary>
        /// Adds a file at index; at the root always at the end. The list takes the record over and releases it with
        /// free(): info must come from malloc() or calloc(), and belongs to the caller as long as the list has not
        /// taken it. The result is 0 in both cases. To see which, ask with vxPLGetFile before the call (a record that
        /// comes back means the name is there and the new one will be refused) and after it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLAddFile(byte[] path, ushort index, IntPtr info);

        /// <summary>
        /// Copy a record over the stored one, and the stored one out. Without such a file nothing is copied.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLModifyFile(byte[] path, IntPtr info);

        /// <summary>
        /// Copy a record over the stored one, and the stored one out. Without such a file nothing is copied.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLGetFile(byte[] path, ref VXPLAYLIST_FILE_INFO info);

        /// <summary>Swaps an entry of a level with its neighbour.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLMoveItem(byte[] path, ushort index, ushort direction);

        /// <summary>
        /// Deletes the entries first to last of a level, both included and both cut to the last entry. A group without
        /// its default child takes no more files of its own.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLDelItem(byte[] path, ushort first, ushort last);

        /// <summary>
        /// Lists a level. At the root *count is the capacity on entry; when it is too small the result is VX_ARGUMENTS
        /// and items stays untouched. In groups and sub-groups the capacity is not looked at: items must have room for
        /// all. *count becomes the number of entries, but stays for a level that is not there.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLGetItems(byte[] path, ref ushort count, [In, Out] VXPLAYLIST_ITEM[] items);

        /// <summary>
        /// Sends the list to the sign, where it plays at once; the second form puts it into the numbered list index.
        /// With withFiles the files whose codes differ from those of the sign's file list go first; a file that does
        /// not arrive is passed over. abortFlag ends the files, not the list. progressTotal becomes 128 and progressPos
        /// the step. The result is that of the list's upload.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLSendToLED(sbyte withFiles);

        /// <summary>
        /// Sends the list to the sign, where it plays at once; the second form puts it into the numbered list index.
        /// With withFiles the files whose codes differ from those of the sign's file list go first; a file that does
        /// not arrive is passed over. abortFlag ends the files, not the list. progressTotal becomes 128 and progressPos
        /// the step. The result is that of the list's upload.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLSpeSendToLED(byte index, sbyte withFiles);

        /// <summary>
        /// Fetches the sign's list, and with withFiles the files that differ from the local ones, but none whose name
        /// would leave the play list directory. vxPLSave keeps it. Returns what the transfer of the list gives when it
        /// fails: the thread's list then stays. Otherwise 0, whatever became of the files. Progress as in sending.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPLReadFromLED(sbyte withFiles);

        /// <summary>
        /// Reads the default display style and "CONFIG.SYS" of the sign into the thread's record, if they are not there
        /// yet, and the style once more in any case. Returns 1 when the record cannot be made, VX_OPEN_FILE when the
        /// temporary file cannot be read, else the result of the failed read or 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxInitProperty();

        /// <summary>
        /// Copies a property (vxPropertyKind) out of the thread's record. Returns 0, also for an unknown kind, which
        /// writes nothing; VX_NOT_INITIALISED before a successful vxInitProperty, for a null out or an outLength of 0.
        /// A value that is wider than outLength is cut.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetProperty([In, Out] byte[] @out, uint outLength, int propertyKind);

        /// <summary>
        /// Reads the communication settings from the sign. The next vxInitProperty then reads the sign afresh. Returns
        /// what vxInitProperty gives; a null out is left out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCommunicationSet([In, Out] vxCommunicationSet[] @out);

        /// <summary>
        /// Writes the communication settings into the sign's "CONFIG.SYS". An address is four numbers of 0 to 255 with
        /// a dot behind each of the first three; blanks ahead of a number and whatever stands behind the last one do
        /// not count. An empty one leaves the sign's own. The thread's record keeps the new settings even when sending
        /// them fails. Returns 0 with nothing written for a sign whose properties cannot be read; VX_ARGUMENTS, with
        /// nothing written, for an address that is none; VX_OPEN_FILE when the temporary file cannot be made, VX_CALL
        /// when it cannot be written, else the result of sending it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteCommunicationSet(ref vxCommunicationSet @in);

        /// <summary>
        /// Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the
        /// limits of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays;
        /// when the sign refuses the message, vxShowMsg leaves it and the others delete it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowMsg([In, Out] byte[] text, uint size, uint font, uint colour, uint mode,
            uint staySec, string host, uint port, uint toE, int sendSequence);

        /// <summary>
        /// Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the
        /// limits of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays;
        /// when the sign refuses the message, vxShowMsg leaves it and the others delete it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowMsgEx([In, Out] byte[] text, uint size, uint font, uint colour, uint mode,
            uint staySec, string host, uint port, uint toE, int sendSequence, uint kind, string serialName,
            uint baudRate, ushort destinationAddress);

        /// <summary>
        /// Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the
        /// limits of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays;
        /// when the sign refuses the message, vxShowMsg leaves it and the others delete it.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowMsgTimeout([In, Out] byte[] text, uint size, uint font, uint colour, uint mode,
            uint staySec, string host, uint port, uint toE, int sendSequence, byte retries, uint timeoutMs, uint kind,
            string serialName, uint baudRate, ushort destinationAddress);

        /// <summary>
        /// Shows a picture: size bytes of a picture file of any type that the sign knows. 3 tries of 3000 ms.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowPic([In, Out] byte[] buf, uint size, uint mode, uint staySec, string host,
            uint port, uint toE);

        /// <summary>
        /// Shows a picture: size bytes of a picture file of any type that the sign knows. 3 tries of 3000 ms.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowPicEx([In, Out] byte[] buf, uint size, uint mode, uint staySec, string host,
            uint port, uint toE, uint kind, string serialName, uint baudRate, ushort destinationAddress);

        /// <summary>
        /// Shows count local files (128 at most) one after the other, all with the same mode and stay time, which
        /// become the sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on
        /// the sign, and what the sign plays stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowFiles(IntPtr files, uint count, int mode, uint staySec, string host, uint port,
            uint toE);

        /// <summary>
        /// Shows count local files (128 at most) one after the other, all with the same mode and stay time, which
        /// become the sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on
        /// the sign, and what the sign plays stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowFilesEx(IntPtr files, uint count, int mode, uint staySec, string host,
            uint port, uint toE, uint kind, string serialName, uint baudRate, ushort destinationAddress);

        /// <summary>
        /// Shows count local files (128 at most) one after the other, all with the same mode and stay time, which
        /// become the sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on
        /// the sign, and what the sign plays stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowFilesSpe(IntPtr files, uint count, int mode, uint staySec, string host,
            uint port, uint toE, uint kind, string serialName, uint baudRate, ushort destinationAddress, byte what);

        /// <summary>
        /// The same with a tree-form sequence file that is valid at all times and carries types[i] for file i. The
        /// sign's display style is left alone, the files go over whatever what says, a file that fails does not stop
        /// the list, and the result is that of the last transfer; 1 when the temporary file cannot be made. reserved is
        /// not used.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxShowFilesII(IntPtr files, uint count, [In, Out] byte[] types, uint reserved,
            string host, uint port, uint toE, uint kind, string serialName, uint baudRate, ushort destinationAddress,
            byte what);

        /// <summary>vxTubeSet(cmd, data, size) with the connection as arguments.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTubeCtrl(byte cmd, [In, Out] byte[] data, uint size, string host, uint port);

        /// <summary>vxTubeSet(cmd, data, size) with the connection as arguments.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTubeCtrlEx(byte cmd, [In, Out] byte[] data, uint size, string host, uint port,
            uint kind, string serialName, uint baudRate, ushort destinationAddress);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSysFile(byte[] name, string local);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadFontFile(byte[] name, string local);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTextFile(byte disk, byte[] name, string local);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadStringFile(byte disk, byte[] name, string local);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPictureFile(byte disk, byte[] name, string local);

        /// <summary>
        /// System files and fonts by name, content files by drive and name, as the functions of write.h put them.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadArrPicFile(byte disk, byte[] name, string local);

        /// <summary>Any path; packet numbers of 16 bits.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSpecPathFile(byte[] path, string local);

        /// <summary>
        /// Any path; packet numbers of 32 bits. The second reads what the sign makes up on request.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSpecPathFileEx(byte[] path, string local);

        /// <summary>
        /// Any path; packet numbers of 32 bits. The second reads what the sign makes up on request.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadVirtualFile(byte[] path, string local);

        /// <summary>The sign's play log.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPlayLog(string local);

        /// <summary>The sign's warning report, "E:\errors.xml", as it is.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadWarning(string local);

        /// <summary>
        /// Size of the data flash: 12 bytes at most; the product of the first two little-endian 16-bit numbers is the
        /// size in bytes.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadDataFlashInfo([In, Out] byte[] @out);

        /// <summary>
        /// The data flash, size bytes of it, all if 0; packet numbers of 32 bits. The sign is given 3 seconds to get
        /// ready. onProgress is called for the first packet too.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadDataFlashFile(string local, uint size);

        /// <summary>The system settings: 16 bytes that only the sign interprets.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSystemSet([In, Out] byte[] @out);

        /// <summary>
        /// The sign's state word (8 bytes) and, if buf is not null, up to size bytes of its status record.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCurrentState(out ulong state, [In, Out] byte[] buf, uint size);

        /// <summary>
        /// Serial number (11 bytes at most) and hardware address (6 bytes). snSize is 12 at least, macSize 6 at least;
        /// what the two leave of their buffers is cleared.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetSNMAC([In, Out] byte[] sn, uint snSize, [In, Out] byte[] mac, uint macSize);

        /// <summary>0 when the last update of the processor went well.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadCPUUpdateResult();

        /// <summary>The default display style: 52 bytes, see vxWriteDefDisplayStyle.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadDefDisplayStyle([In, Out] byte[] style);

        /// <summary>
        /// A record of the sign's own making: *len is its announced length, buf gets the first size bytes of it at
        /// most.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSystemInfo([In, Out] byte[] buf, uint size, out uint len);

        /// <summary>
        /// A record of the sign's own making: *len is its announced length, buf gets the first size bytes of it at
        /// most.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadErrorLog([In, Out] byte[] buf, uint size, out uint len);

        /// <summary>
        /// Runs sql in the sign's database id. outA gets the head of the answer (its first 16 bits are the number of
        /// rows), outB the rows as text, each column in angle brackets, without terminator.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadDB(ushort id, byte[] sql, [In, Out] byte[] outA, int sizeA,
            [In, Out] byte[] outB, uint sizeB);

        /// <summary>Brightness: three bytes (a may be null), and the extended record, up to 8 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadBrightInfo([In, Out] byte[] a, out byte b, out byte c);

        /// <summary>Brightness: three bytes (a may be null), and the extended record, up to 8 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadBrightInfoExt([In, Out] byte[] @out);

        /// <summary>
        /// A statistics record of the sign, size bytes of it at most; VX_ARGUMENTS for a size of 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadStats(byte which, [In, Out] byte[] buf, uint size);

        /// <summary>
        /// The number of the sign's board, and how many ports it has: as the sign says or, where it says 0, as is known
        /// of that board.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPCBID(out uint id);

        /// <summary>
        /// The number of the sign's board, and how many ports it has: as the sign says or, where it says 0, as is known
        /// of that board.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadPCBIDAndPort(out uint id, out byte ports);

        /// <summary>
        /// Update status of the board (addrHigh &lt;&lt; 8) | addrLow. first (only where addrLow is 0) becomes 0 or
        /// 255, second 1 or 255; either may be null to leave it out. Each is set to 255 before its own request, also
        /// when that then fails. When the request for first fails, the thread's destinationAddress stays changed.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLCReadUpdateStatus(byte addrLow, byte addrHigh, [In, Out] byte[] first,
            [In, Out] byte[] second);

        /// <summary>
        /// One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
        /// arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are
        /// taken. kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind
        /// is serial. Any failure that has no code of its own gives VX_CALL.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEasyReadFile(string local, byte[] path, string host, uint port);

        /// <summary>
        /// One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
        /// arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are
        /// taken. kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind
        /// is serial. Any failure that has no code of its own gives VX_CALL.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEasyWriteFile(string local, byte[] path, string host, uint port);

        /// <summary>
        /// One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
        /// arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are
        /// taken. kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind
        /// is serial. Any failure that has no code of its own gives VX_CALL.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEasyReadFileEx(string local, byte[] path, string host, uint port, uint kind,
            string serialName, uint baud, ushort destination);

        /// <summary>
        /// One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
        /// arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are
        /// taken. kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind
        /// is serial. Any failure that has no code of its own gives VX_CALL.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxEasyWriteFileEx(string local, byte[] path, string host, uint port, uint kind,
            string serialName, uint baud, ushort destination);

        /// <summary>
        /// The English text of a result word: a constant; "Unknow Error!" for a number that is not known.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern IntPtr vxErrorDesc(uint code);

        /// <summary>
        /// The checksum of the bytes start up to but not including end of buffer, 0 if there are none. mode 1: CRC-16
        /// in the reflected form of 0x8408 with seed 0xFFFF, complemented, its two bytes exchanged ("123456789" gives
        /// 0x6E90). Any other mode: the sum of the bytes, its low 16 bits. A null buffer gives 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxChkSum([In, Out] byte[] buffer, uint start, uint end, uint mode);

        /// <summary>
        /// Gathers the sign's status, its beacon and what it shows, and calls callback once. What that returns is not
        /// looked at.  longitudeBits and latitudeBits are the bits of two 32-bit floats: degrees with 2000 added, east
        /// and north positive. A value of 1000 or less in either means that there is no position.  With useSignBeacon
        /// not 0 the beacon is made of vxGetSignBeacon (bytes 1, 0, 2 and 3 of it become 0, 4, 5 and 6; 255 in byte 0
        /// becomes 0), of bytes 1 and 2 of vxGetExternalEquipment, and in byte 3 of 1 for a first power byte of 0; a
        /// sign that does not know the former gives its vxGetBeacon, as with useSignBeacon 0.  messagePath is
        /// tempFolder (which ends in a separator) and the name that the sign tells, less any folder. With
        /// onMessageToGif set (vxApiConfig) that message is turned into "monitor.gif" in tempFolder; when nothing
        /// plays, the message is "\__BLANK.VXB" behind tempFolder.  Returns the failure of vxReadCurrentState, without
        /// a call of callback; else what the last reading of beacon or power gave. Other readings that fail leave
        /// zeros: a sign that falls silent behind its state holds the call for the time of six more exchanges.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadStatusInfo(string tempFolder, uint user, ulong reserved,
            VxOnStatusInfo callback, uint longitudeBits, uint latitudeBits, byte useSignBeacon);

        /// <summary>
        /// Puts four bytes of the status into a record of the caller's, which has 569 bytes at least: Value0, Value1
        /// and Value3 of vxStatusRecord at 565 to 567, and byte 3 of vxGetBeacon (0 when that fails) at 568. Returns
        /// what vxReadCurrentState gives.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxUpdate3Info([In, Out] byte[] record);

        /// <summary>
        /// Fetches the sign's ring of warnings, "E:\STATUS.SYS", into the file localPath, where it stays; the sign's is
        /// deleted. The rows come from the first time stamp behind the oldest record on; a ring whose oldest record is
        /// a time stamp gives none. Returns what the last callback gave, 0 without rows and for a sign that has no
        /// ring; what the transfer gives when it fails; VX_OPEN_FILE when the local file cannot be opened,
        /// VX_FILE_FORMAT when it is no ring.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadSignWaringLog(string localPath, byte[] signName, VxOnWaringLog callback);

        /// <summary>
        /// Reads the sign's report, "E:\errors.xml": a row for each warning of the main board and of each tile, and one
        /// each for a number of bad pixels and of bad signals that is not 0 (Name "PixelError" or "SignalError", Value
        /// "Num=12"). What the callback returns is not looked at. Returns what the transfer gives when it fails, 3 when
        /// the temporary file cannot be opened, the error number of the XML parser for a file that is not well formed.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadWaringReport(VxOnWaringReport callback);

        /// <summary>
        /// Reads the log of the sign's own program, "D:\log\vxspeapp.log": its first 16 bytes into head and, if these
        /// begin with "GL", the next count records of 32 bytes into rows. What the file lacks is zero. The records are
        /// the sign's. Returns what the transfer gives, or VX_OPEN_FILE when the temporary file cannot be opened.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadWarningLog([In, Out] ushort[] head, [In, Out] byte[] rows, byte count);

        /// <summary>
        /// Start the task that gives a tile's status (its result begins with a TileStatRecord) and the one that tests a
        /// tile; testCode is the tile's. taskId gets the task; an answer that names none leaves it as it was.
        /// VX_ARGUMENTS for a tile above 494; the test also takes 65535, all tiles.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisGetTileStat(ushort tile, out uint taskId);

        /// <summary>
        /// Start the task that gives a tile's status (its result begins with a TileStatRecord) and the one that tests a
        /// tile; testCode is the tile's. taskId gets the task; an answer that names none leaves it as it was.
        /// VX_ARGUMENTS for a tile above 494; the test also takes 65535, all tiles.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisTileTest(ushort tile, byte testCode, out uint taskId);

        /// <summary>
        /// Waits for the end of a task, asking 3000 times at most, with 100 ms in between: five minutes, and the time
        /// that the sign takes for its answers. status is written in any case: VX_TASK_SUCCESS when buffer has got the
        /// result, as much of it as bufferSize takes; VX_TASK_WAITING or VX_TASK_PROCESSING when the task has not
        /// ended; otherwise how it ended. Returns the result of the last question.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisGetResult(uint taskId, [In, Out] byte[] buffer, uint bufferSize,
            out ushort status);

        /// <summary>
        /// Sends a tile a command and waits. Returns how the task ended, 0 for success. VX_ARGUMENTS for 495 to 65534;
        /// 65535 goes out as address 1 of the second bus. A task that has not ended after five minutes or so gives its
        /// state: 3 while it is worked on, but 0 while it still waits for its turn.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisSetTileCmd(ushort tile, byte command);

        /// <summary>
        /// Installs a local file in a tile, by way of the sign's drive C. fileType: 0 to 4, VX_ARGUMENTS for any other.
        /// Returns how the command at the end of the installation ended, as vxTarsisSetTileCmd does; what goes wrong on
        /// the way to it is not told.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisWriteTileFile(string localPath, ushort tile, byte fileType);

        /// <summary>
        /// Reads the calibration of a tile into a local file; fileType is 4, VX_ARGUMENTS for any other. VX_OPEN_FILE
        /// when the local file cannot be made, VX_CALL when it cannot be written; otherwise how the task that failed
        /// ended.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisReadTileFile(string localPath, ushort tile, byte fileType);

        /// <summary>Two commands of the control board; what option means is the sign's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisFMCalOpt(byte option);

        /// <summary>Two commands of the control board; what option means is the sign's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxFlashPGMConnectCMD();

        /// <summary>
        /// Read and write a tile pixel file, without a sign. pixels holds a TilePixelRecord for each pixel, row after
        /// row: pixelBytes must be width * height * 18. tileKind, tileModel and the sizes, all in pixels, choose the
        /// order of the file. A file with fewer records than that order wants repeats the last one.  VX_ARGUMENTS for a
        /// null pointer, another pixelBytes, a module of no size or one that is larger than the tile; VX_OPEN_FILE for
        /// a local file that cannot be opened, and on loading for one that is no pixel file or has less than 6 bytes a
        /// pixel; VX_CALL for one that cannot be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisTilePxlLoad([In, Out] ushort[] pixels, uint pixelBytes, string path,
            uint tileKind, uint tileModel, uint width, uint height, uint moduleWidth, uint moduleHeight);

        /// <summary>
        /// Read and write a tile pixel file, without a sign. pixels holds a TilePixelRecord for each pixel, row after
        /// row: pixelBytes must be width * height * 18. tileKind, tileModel and the sizes, all in pixels, choose the
        /// order of the file. A file with fewer records than that order wants repeats the last one.  VX_ARGUMENTS for a
        /// null pointer, another pixelBytes, a module of no size or one that is larger than the tile; VX_OPEN_FILE for
        /// a local file that cannot be opened, and on loading for one that is no pixel file or has less than 6 bytes a
        /// pixel; VX_CALL for one that cannot be written.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTarsisTilePxlSave([In, Out] ushort[] pixels, uint pixelBytes, string path,
            uint tileKind, uint tileModel, uint width, uint height, uint moduleWidth, uint moduleHeight);

        /// <summary>Asks for a sign of life: three numbers of the sign's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxConnectTest(out ushort first, out ushort second, out uint third);

        /// <summary>
        /// Test pattern 2 to 15, VX_ARGUMENTS for any other; and the end of the test, whichever it is.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxPatternTest(byte pattern);

        /// <summary>
        /// Test pattern 2 to 15, VX_ARGUMENTS for any other; and the end of the test, whichever it is.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxStopTest();

        /// <summary>The whole face in one colour.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxColorTest(byte red, byte green, byte blue);

        /// <summary>Shows the cray test in that state.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCrayTest(ref vxCrayState state);

        /// <summary>
        /// An area of the face: 24 bytes (three numbers of 64 bits) that only the sign interprets.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxAreaTest([In, Out] ulong[] area);

        /// <summary>Locations on the face: five numbers and count values of 16 bits.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLocationTest(ushort first, ushort second, ushort third, ushort fourth,
            [In, Out] byte[] data, uint count, ushort fifth);

        /// <summary>Which debug information the sign gives.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDebugInfoSetting(uint value);

        /// <summary>
        /// Sends length bytes for a stability test, in a packet whose id is id + 1. The ids of all threads go on from
        /// there.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxStabilityTest([In, Out] byte[] data, byte length, ushort id);

        /// <summary>
        /// The sign's clock. sixth to eighth are the sign's, in one order for both; sixth always reads as 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadLEDTime(out ushort year, out byte month, out byte day, out byte hour,
            out byte minute, out byte sixth, out byte seventh, out byte eighth);

        /// <summary>
        /// The sign's clock. sixth to eighth are the sign's, in one order for both; sixth always reads as 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxAjustLEDTimeEx(ushort year, byte month, byte day, byte hour, byte minute,
            byte sixth, byte seventh, byte eighth);

        /// <summary>
        /// Tells the sign temperature and humidity, once: 0 as soon as the channel is open, whatever the sign answers.
        /// second goes over in sixteenths.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSendTempHumi(byte first, sbyte second);

        /// <summary>The speed limit: two numbers of the sign's.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteSpeedLimit(ushort first, ushort second);

        /// <summary>Sends length bytes of data to the tube display under the given minor command.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTubeSet(byte minor, [In, Out] byte[] data, uint length);

        /// <summary>
        /// Any command: sends the given payload and extended part under major and minor, with the CRC in place of the
        /// sum when crc is not 0. Whatever the result, requestOut (527 bytes at most) gets the request, replyOut (4608
        /// bytes at most) what was read back, each whole, and the two lengths their total lengths cut to 8 bits (a
        /// packet's own header has the true one: 16 + 4 * byte 14 + byte 4 + 256 * byte 5). A reply that never came
        /// reads as zeros, of length 16. Null outputs are left out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxCustomTest(byte major, byte minor, [In, Out] byte[] payload, byte payloadLength,
            [In, Out] byte[] extended, byte extendedLength, byte crc, [In, Out] byte[] requestOut,
            [In, Out] byte[] requestLength, [In, Out] byte[] replyOut, [In, Out] byte[] replyLength);

        /// <summary>Starts the ticker that runs what is uploaded, and stops it.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTickerStart(byte first, byte second, byte third);

        /// <summary>Starts the ticker that runs what is uploaded, and stops it.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTickerStop();

        /// <summary>
        /// Which buffer can receive: status becomes VX_BUFFER_3_READY, VX_BUFFER_1_READY or VX_BUFFER_1_READY_TOO;
        /// vxErrorDesc has the words. A sign that answers without such a word gives 0 too, and status stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetBufferStatus(out ushort status);

        /// <summary>
        /// Sends length bytes into the receiving buffer, in packets of dataSize (vxApiConfig), 65535 of them at most.
        /// onProgress is called after each with the percentage so far. VX_ARGUMENTS for a length of 0.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxUploadBuffer([In, Out] byte[] data, uint length);

        /// <summary>The ticker that the sign runs by itself.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOffLineTickerStart(byte first, byte second, byte third, byte fourth);

        /// <summary>The ticker that the sign runs by itself.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxOffLineTickerStop();

        /// <summary>
        /// The status and monitor blocks. size is the capacity of buffer and becomes the bytes copied; of monitorKind
        /// the low 8 bits go out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTCStatus([In, Out] byte[] buffer, ref uint size);

        /// <summary>
        /// The status and monitor blocks. size is the capacity of buffer and becomes the bytes copied; of monitorKind
        /// the low 8 bits go out.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTCMonitor(uint monitorKind, [In, Out] byte[] buffer, ref uint size);

        /// <summary>
        /// A part of the real-time status: capacity bytes at most, the rest of buffer stays as it was. A null buffer
        /// takes nothing.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTCGetRealStatus([In, Out] byte[] buffer, uint capacity, byte part);

        /// <summary>Switches to manual, or to what else mode means to the controller.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTCManual(byte mode);

        /// <summary>
        /// The two lamp tests: lampCount bytes of lamps, firstCount + secondCount in the second one.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTCJKBLightTest([In, Out] byte[] lamps, byte lampCount);

        /// <summary>
        /// The two lamp tests: lampCount bytes of lamps, firstCount + secondCount in the second one.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTCJKCLightTest([In, Out] byte[] lamps, byte firstCount, byte secondCount);

        /// <summary>Runs a phase of VX_TRAFFIC_PHASE bytes once; of flag the low 8 bits go out.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTrafficTempPhaseRun([In, Out] byte[] phase, uint flag);

        /// <summary>
        /// The flow counters that the VX_TRAFFIC_FLOW_QUERY bytes of query ask for: the reply's payload and what
        /// follows it, 1536 bytes at most, become the file path. VX_NOT_INITIALISED for a null, for a thread without
        /// configuration and for a channel that cannot be opened; VX_OPEN_FILE.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxTrafficRFlow([In, Out] byte[] query, string path);

        /// <summary>
        /// The controller's clock. The last two are the controller's: timeField7 travels in BCD, timeField8 as it is.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficTime(out ushort year, out byte month, out byte day, out byte hour,
            out byte minute, out byte second, out byte timeField7, out byte timeField8);

        /// <summary>
        /// The controller's clock. The last two are the controller's: timeField7 travels in BCD, timeField8 as it is.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxAjustTrafficTime(ushort year, byte month, byte day, byte hour, byte minute,
            byte second, byte timeField7, byte timeField8);

        /// <summary>
        /// A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
        /// status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
        /// VX_OPEN_FILE. No file is made when the reading fails.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficStatus(string path);

        /// <summary>
        /// A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
        /// status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
        /// VX_OPEN_FILE. No file is made when the reading fails.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficMonitor(string path);

        /// <summary>
        /// A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
        /// status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
        /// VX_OPEN_FILE. No file is made when the reading fails.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficRealStatus(string path);

        /// <summary>
        /// The error log "E:\ERR_REC\ERRMSG.ERR", which is fetched to localPath and stays there. A callback that
        /// returns other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it
        /// fails, VX_OPEN_FILE, or 0. Codes that the library does not know come with level 0 and an empty text before "
        /// ErrCNT=". Some texts end in an address of one byte, which is a control character and not a digit.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficErrLog(string localPath, byte[] signName, VxOnTrafficError callback);

        /// <summary>
        /// The temperature log: each file of "E:\TEP_REC\" holds a month of one source; the month is the latest one
        /// that has begun. The files are fetched to localPath one after the other; the last one stays there. Files
        /// whose names tell no source and month are passed over.  Each day of a file gives 24 records, for the hours 0
        /// to 23, all with the same sample: by rule it is the byte of the day's row at the place that the file has in
        /// its page of 20 entries of the directory. A callback that returns other than 0 for the hour 23 ends its file.
        /// Returns what the callback returned last, or what the transfer of the last file gave; a failure of the last
        /// file of a page ends the reading.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxReadTrafficTempLog(string localPath, byte[] signName, VxOnTrafficTemp callback);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSelChannel(byte first, byte second);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSelChannelEx(byte first, byte second);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSetVideoArg(byte first, byte second);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSetHDMI_DP_Out(byte first, byte second);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSetEDID(byte first, [In, Out] byte[] edid);

        /// <summary>MPU: channels, pictures and ports. edid: 15 bytes.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSetINBPhase(byte first, byte second);

        /// <summary>
        /// Sets a window, which takes the MPU a while: *taskId becomes the number to ask for its progress with; a null
        /// leaves it out. Of first the low byte goes over. There is no waiting here, and which progress means the end
        /// is the MPU's.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUSetWin(ushort first, ushort value1, ushort value2, ushort value3, ushort value4,
            byte last, [In, Out] uint[] taskId);

        /// <summary>
        /// Sets a window, which takes the MPU a while: *taskId becomes the number to ask for its progress with; a null
        /// leaves it out. Of first the low byte goes over. There is no waiting here, and which progress means the end
        /// is the MPU's.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxMPUProgressByTaskID(uint taskId, out byte progress);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSelChannel(byte first);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetMode(byte first, byte second);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetVideoRatio(byte first);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetDVIWin(ushort value1, ushort value2);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetVideoWin(ushort value1, ushort value2);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetVideoArg(ushort value1, ushort value2);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUType(byte first);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSlaverStartLine(ushort value1);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetColorTemp(byte first, byte second, byte third, byte fourth);

        /// <summary>VPU: channel, mode, windows and picture.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetGamma(byte first);

        /// <summary>Brightness: four numbers.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetBright(byte first, byte second, byte third, byte fourth);

        /// <summary>Brightness: four numbers.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUGetBright(out byte out1, out byte out2, out byte out3, out byte out4);

        /// <summary>Number and position of the LDUs. Of each value the low byte goes over.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetLDUNums(byte first);

        /// <summary>Number and position of the LDUs. Of each value the low byte goes over.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetLDUPos(ushort value1, ushort value2, ushort value3);

        /// <summary>
        /// The state of the inputs, four numbers, and what the VPU tells about itself, 24 bytes.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUGetSignalStatus(out ushort status1, out ushort status2, out ushort status3,
            out ushort status4);

        /// <summary>
        /// The state of the inputs, four numbers, and what the VPU tells about itself, 24 bytes.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUGetInfo([In, Out] byte[] info);

        /// <summary>
        /// The mode of the pixels. This and vxVPUGetInfo are one command to the VPU: with 0 for first it is taken for
        /// the question, and its answer is dropped.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxVPUSetPixcelMode(byte first);

        /// <summary>
        /// System files, such as "SEQUENT.SYS" or "CONFIG.SYS", and fonts: where they live is the sign's own.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteSystemFile(byte[] name, string local);

        /// <summary>
        /// System files, such as "SEQUENT.SYS" or "CONFIG.SYS", and fonts: where they live is the sign's own.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteFontFile(byte[] name, string local);

        /// <summary>Content files by drive and name; the folder follows from the kind of file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteTextFile(byte disk, byte[] name, string local);

        /// <summary>Content files by drive and name; the folder follows from the kind of file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteStringFile(byte disk, byte[] name, string local);

        /// <summary>Content files by drive and name; the folder follows from the kind of file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWritePictureFile(byte disk, byte[] name, string local);

        /// <summary>Content files by drive and name; the folder follows from the kind of file.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteArrPicFile(byte disk, byte[] name, string local);

        /// <summary>
        /// Any path. The first form numbers its packets in 16 bits (65535 packets at most), the second in 32.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteSpecFile(byte[] path, string local);

        /// <summary>
        /// Any path. The first form numbers its packets in 16 bits (65535 packets at most), the second in 32.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteSpecFileEx(byte[] path, string local);

        /// <summary>
        /// As vxWriteSpecFileEx, with up to 8 packets on their way at a time. onProgress is called once, with 0
        /// percent. Packets that are not acknowledged within 4 seconds go out again; more than retries of these end the
        /// transfer with VX_COMMUNICATION. The acknowledgement of a packet with id 0, once in the 65536 packets of a
        /// process, does not count by rule: such a transfer ends with VX_COMMUNICATION (retries + 1) x 4 seconds behind
        /// its last acknowledgement. Send the file once more then; one of 65535 packets and more needs
        /// vxWriteSpecFileEx. A file of one packet is sent twice. Behind its last acknowledgement a window lasts
        /// (retries + 2) x 4 seconds at most. Through onRead it looks without waiting, every 5 ms while nothing comes.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteFileOptimize(byte[] path, string local);

        /// <summary>
        /// Data flash contents: size bytes, the file's size if 0. A size beyond the file's end sends empty packets for
        /// the rest.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteDataFlashFile(string local, uint size);

        /// <summary>
        /// Memory of a board, in blocks of 1024 bytes from offset 0. The board is addrHigh; addrLow is 0 or 1, and the
        /// destination address of the call is (addrHigh &lt;&lt; 8) | addrLow. A file that cannot be opened gives
        /// VX_ARGUMENTS. When the transfer fails, the thread's destinationAddress stays changed.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteAbsoluteAddress(byte addrLow, byte addrHigh, string local);

        /// <summary>
        /// An urgent message of len bytes; a and b are the sign's selectors. The sign refuses more than 1024 bytes.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteUrgentMsg(byte a, byte b, [In, Out] byte[] data, uint len);

        /// <summary>The brightness control block: 12 bytes that only the sign interprets.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteBrightCtrlBlock([In, Out] byte[] block);

        /// <summary>
        /// Serial number (11 bytes at most) and hardware address (16 bytes at most) of the sign.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteSNMAC([In, Out] byte[] sn, uint snSize, [In, Out] byte[] mac, int macSize);

        /// <summary>
        /// The default display style: 52 bytes. Byte 2 is 'E' or 'C' (where the content plays from), bytes 11 and 12
        /// are entry and exit mode, byte 14 is a short stay time in seconds, 255 meaning the 32-bit stay time at offset
        /// 16.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteDefDisplayStyle([In, Out] byte[] style);

        /// <summary>
        /// Size and checksum that the sign is to find for a file. The first 32 bytes of name count.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxWriteCRCForFile(byte[] name, uint size, ushort crc);

        /// <summary>
        /// Update status of the board (addrHigh &lt;&lt; 8) | addrLow: 0, 1 or 2, but not 1 where addrLow is 1.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxLCSetUpdateStatus(byte addrLow, byte addrHigh, byte status);

        /// <summary>
        /// Sends the file at path in blocks of 128 bytes, the last one filled up with 0x1A, once the receiver has asked
        /// for them: with 'C' for blocks with a CRC, with NAK for blocks with a checksum. Each step is tried up to
        /// retries times for timeoutMs: ten steps for the receiver to ask, 20 for each block, and 11 more for one that
        /// it goes on refusing. Behind a block that was confirmed silence ends the next one after one step. onProgress
        /// is called behind each block that the receiver has confirmed, and counts those alone.  VX_OPEN_FILE, with
        /// nothing sent, when the file cannot be opened. VX_UPGRADE_FAILED when the receiver does not ask, or goes on
        /// refusing a block. Any other end gives VX_OK, also one without success: after "Fatal Error!" the receiver
        /// answered a block neither with ACK nor with NAK, and "sedn EOT:wait ACK tiem out!" tells that it did not
        /// confirm the end. Silence behind a block that was confirmed counts as another confirmation. abortFlag ends
        /// the waiting, and with it the transfer in one of these ways.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxXModem_Upgrade(string path);

        /// <summary>Divides a page, or a zone of it: the head and its entries, 127 at most.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDivideZoneBase(byte pageId, byte zoneId, [In, Out] byte[] data, byte length);

        /// <summary>Divides a page, or a zone of it: the head and its entries, 127 at most.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDivideZone(byte pageId, byte zoneId, ZoneHead head, [In, Out] byte[] entries);

        /// <summary>Divides a page, or a zone of it: the head and its entries, 127 at most.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDivideZone4j(byte pageId, byte zoneId, ref ZoneHead head, IntPtr entries);

        /// <summary>
        /// The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at
        /// most; VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as
        /// many of its entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetZoneBase([In, Out] byte[] @out, uint outLength);

        /// <summary>
        /// The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at
        /// most; VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as
        /// many of its entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetZone(ref ZoneHead head, [In, Out] byte[] entries, byte maxEntries, byte pageId);

        /// <summary>
        /// The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at
        /// most; VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as
        /// many of its entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetZone4j(ref ZoneHead head, IntPtr entries, byte maxEntries, byte pageId);

        /// <summary>How a zone shows its content: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetDisplayBase(byte pageId, byte zoneId, byte option, [In, Out] byte[] data,
            byte length);

        /// <summary>How a zone shows its content: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetDisplay(byte pageId, byte zoneId, byte option, DisplayHead head,
            [In, Out] byte[] data);

        /// <summary>How a zone shows its content: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetDisplay4j(byte pageId, byte zoneId, byte option, ref DisplayHead head,
            [In, Out] byte[] data);

        /// <summary>The content of a zone: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetContentDisplayBase(byte pageId, byte zoneId, [In, Out] byte[] data, byte length);

        /// <summary>The content of a zone: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetContentDisplay(byte pageId, byte zoneId, ContentHead head,
            [In, Out] byte[] data);

        /// <summary>The content of a zone: the head and its data.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetContentDisplay4j(byte pageId, byte zoneId, ref ContentHead head,
            [In, Out] byte[] data);

        /// <summary>Divides a page into special zones: the head and its words.</summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxDivideSpeZone(byte pageId, SpeZoneHead head, [In, Out] byte[] data);

        /// <summary>
        /// Whether the face is divided at all, and how many pages there are; and both as they stand.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetEnableMulitZone(byte enable);

        /// <summary>
        /// Whether the face is divided at all, and how many pages there are; and both as they stand.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxSetPageCount(byte count);

        /// <summary>
        /// Whether the face is divided at all, and how many pages there are; and both as they stand.
        /// </summary>
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl, ExactSpelling = true,
            BestFitMapping = false, ThrowOnUnmappableChar = true)]
        public static extern uint vxGetMulitZoneSetting(out byte enable, out byte pageCount);
    }
}
