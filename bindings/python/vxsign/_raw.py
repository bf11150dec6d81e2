"""Every function and structure of the library, as the headers declare them. Made by bindings/generate.py.

Names, arguments and results are those of C. A pointer to one value takes a number of ctypes (`ctypes.c_uint32()`), a
buffer takes a bytearray, an array of ctypes or, where it is only read, bytes; each is checked for its size. Texts that
the sign sees are bytes in its encoding, paths of this PC are what `open` takes. Results are not looked at: see `Sign`.
"""

from __future__ import annotations

import ctypes
from collections.abc import Sequence
from typing import Any, Optional, Union

from ._convert import Ascii, Buffer, Number, Path, PathText, SignText, behind, given, held, paths, room, writable
from ._library import nothing, number, pointer, text

_int8 = Number(ctypes.c_int8)
_uint8 = Number(ctypes.c_uint8)
_int16 = Number(ctypes.c_int16)
_uint16 = Number(ctypes.c_uint16)
_int32 = Number(ctypes.c_int32)
_uint32 = Number(ctypes.c_uint32)
_int64 = Number(ctypes.c_int64)
_uint64 = Number(ctypes.c_uint64)
_int = Number(ctypes.c_int)

VX_CHANNEL_UDP = 0
VX_CHANNEL_TCP = 1
VX_CHANNEL_SERIAL = 2
VX_RECORD_CONFIGURATION = 0
VX_RECORD_STATE = 1
VX_RECORD_PLAY_LIST = 2
VX_TILE_LOCKED = 16
VX_LOG_READ = 1
VX_BATTERY_SECOND_LOG = 1
VX_SIGN_TIME_SIZE = 20
VX_MOVE_READ = 1
VX_MOVE_WRITE = 2
VX_NO_PORT = 255
VX_TILES_OF_PORT = 65535
VX_CAL_PARAMS = 88
VX_TILE_CALIBRATION = 5
VX_TILE_STATUS = 7
VX_TILE_COEFFICIENTS = 13
VX_PIXEL_BAD = 2
VX_SIGNAL_BAD = 3
VX_PIXELS_FROM_CSV = 0
VX_PIXELS_FROM_DATABASE = 1
VX_PIXELS_FROM_TEXT = 2
VX_PIXELS_FROM_TEXT_2 = 9
VX_SCHEDULES = 256
VX_ENTRY_GROUP = 0
VX_ENTRY_FILE = 1
VX_MOVE_DOWN = 1
VX_PROPERTY_HAS_DRIVE_F = 1
VX_PROPERTY_CONTENT_SOURCE = 2
VX_PROPERTY_DISPLAY_STYLE = 3
VX_PROPERTY_SEQUENCE_FORM = 4
VX_OK = 0
VX_NO_RECORD = 1
VX_ARGUMENTS = 2
VX_NOT_INITIALISED = 3
VX_TIME_LIMIT = 4
VX_NO_MAGIC = 5
VX_CALL = 256
VX_CALL_2 = 257
VX_FILE_FORMAT = 258
VX_CANNOT_MODIFY = 259
VX_NO_TASK = 260
VX_NO_FUNCTION = 261
VX_UNKNOWN_TASK = 262
VX_NOT_CONNECTED = 263
VX_DATABASE_OPEN = 512
VX_DATABASE_COMMAND = 513
VX_DATABASE_EXCEPTION = 514
VX_TASK_WAITING = 3072
VX_TASK_SUCCESS = 3073
VX_TASK_QUEUE = 3074
VX_TASK_PROCESSING = 3075
VX_TASK_BUS = 3076
VX_TASK_RETRIES = 3077
VX_TASK_FAILED = 3078
VX_TASK_ID = 3079
VX_TASK_BROADCAST = 3080
VX_TASK_LDU = 3081
VX_TASK_LDU_ADDRESS = 3089
VX_TASK_TWI = 3090
VX_TASK_PIXEL_ORDER = 3091
VX_READ_TOO_LONG = 4353
VX_BAD_ADDRESS = 4354
VX_UPDATE_FAILED = 7937
VX_UPDATING = 7938
VX_NO_UPDATE = 7939
VX_MEMORY = 8192
VX_FILE_TOO_LONG = 8449
VX_NO_SPACE = 8450
VX_NO_SPACE_C = 8451
VX_NO_SPACE_D = 8452
VX_NO_SPACE_E = 8453
VX_NO_SPACE_F = 8454
VX_NO_SPACE_G = 8455
VX_URGENT_TOO_LONG = 10497
VX_BAD_PAGE = 14049
VX_PAGE_NOT_CONFIGURED = 14050
VX_TOO_MANY_PAGES = 14051
VX_BAD_ZONE = 14052
VX_ZONE_NOT_CONFIGURED = 14053
VX_BAD_PAGE_COUNT = 14054
VX_NOT_SUPPORTED = 14849
VX_PACKET_OK = 19279
VX_OPEN_SERIAL = 20481
VX_CONNECT_TIME_LIMIT = 20482
VX_FAILED_OPERATION = 20483
VX_INCONSISTENT_SYNC = 20484
VX_INCONSISTENT_SOURCE = 20485
VX_INCONSISTENT_DESTINATION = 20486
VX_INCONSISTENT_ID = 20487
VX_INCONSISTENT_MAJOR = 20488
VX_INCONSISTENT_MINOR = 20489
VX_INCONSISTENT_SUM = 20496
VX_ABORTED = 20497
VX_NO_PLAY_LIST = 20498
VX_UNEXPECTED_FORMAT = 20499
VX_COMMUNICATION = 20736
VX_OPEN_FILE = 20737
VX_EMPTY_FILE = 20738
VX_TIME_NOT_SET = 20993
VX_NO_ANSWER = 21061
VX_NOTHING_PLAYS = 26369
VX_PLAYING_NOT_OPENED = 26370
VX_PLAYING_TOO_LONG = 26371
VX_FORMAT_FAILED = 29185
VX_MAKE_FOLDER_FAILED = 29441
VX_RENAME_FAILED = 29697
VX_RENAME_PATH = 29698
VX_MOVE_FAILED = 29953
VX_DELETE_FAILED = 30209
VX_LIST_FAILED = 31489
VX_NO_DRIVE_INFORMATION = 32001
VX_FILE_GONE = 32257
VX_BUFFER_3_READY = 33537
VX_BUFFER_1_READY = 33538
VX_BUFFER_1_READY_TOO = 33539
VX_NO_TICKER = 33541
VX_BUFFER_FULL = 33542
VX_BAD_TICKER_DATA = 33543
VX_PROCESS_OK = 36864
VX_SIGN_SYNC = 36865
VX_SIGN_SUM = 36866
VX_SIGN_ADDRESS = 36867
VX_UNKNOWN_MAJOR = 36868
VX_UNKNOWN_MINOR = 36869
VX_PACKET_LENGTH = 36870
VX_FILE_NOT_EXISTS = 36872
VX_END_OF_FILE = 36873
VX_SIGN_FILE_NOT_OPENED = 36880
VX_COMMAND_NOT_SUPPORTED = 36881
VX_SIGN_WRITE_FAILED = 36882
VX_CHUNK_SIZE = 36883
VX_CHUNK_NUMBER = 36884
VX_SIGN_DELETE_FAILED = 36885
VX_LOGIN_WANTED = 36912
VX_WRONG_PASSWORD = 36913
VX_WRONG_USER = 36914
VX_WRONG_OLD_PASSWORD = 36915
VX_IN_USE = 36917
VX_NO_PERMISSION = 36918
VX_PASSWORD_KEY = 43521
VX_ONLY_AT_START = 43522
VX_FTP = 45313
VX_HTTP = 45314
VX_FILE_LOCKED = 49410
VX_LOCK_WANTED = 49411
VX_FILE_DATABASE = 49952
VX_USER_OR_PASSWORD = 49968
VX_ADD_TASK = 49984
VX_TASK_QUEUE_FULL = 65535
VX_MODE_BY_STATISTICS = 241
VX_LEVEL_PIXEL_OR_TILE = 2
VX_LEVEL_TEMPERATURE = 3
VX_WARING_MAINBOARD = 0
VX_WARING_TILE = 1
VX_WARING_PIXELS = 2
VX_WARING_SIGNALS = 3
VX_WARING_NO_POSITION = 255
VX_LAST_TILE = 494
VX_ALL_TILES = 65535
VX_TRAFFIC_MONITOR = 4
VX_TRAFFIC_FLOW_QUERY = 8
VX_TRAFFIC_PHASE = 31
VX_TRAFFIC_STATUS_FILE = 87117
VX_TRAFFIC_MONITOR_FILE = 87107
VX_TRAFFIC_REAL_FILE = 86612
VX_UPGRADE_FAILED = 4294967295


class TileFileHeader(ctypes.Structure):
    """How the files of a tile begin."""
    _pack_ = 1
    _fields_ = [
        ("magic", ctypes.c_uint16),
        ("headerLength", ctypes.c_uint16),
        ("reserved", ctypes.c_uint16),
        ("fileType", ctypes.c_uint16),
        ("reserved2", ctypes.c_uint16),
        ("stamps", ctypes.c_uint16 * 2),
        ("reserved3", ctypes.c_uint16),
        ("bodyLength", ctypes.c_uint32),
        ("reserved4", ctypes.c_uint8 * 12),
    ]


class TileStaRecord(ctypes.Structure):
    """What follows in a status file."""
    _pack_ = 1
    _fields_ = [
        ("reserved", ctypes.c_uint8 * 16),
        ("flags", ctypes.c_uint8),
        ("reserved2", ctypes.c_uint8 * 35),
        ("width", ctypes.c_uint16),
        ("height", ctypes.c_uint16),
        ("moduleWidth", ctypes.c_uint16),
        ("moduleHeight", ctypes.c_uint16),
        ("modulesAcross", ctypes.c_uint8),
        ("modulesDown", ctypes.c_uint8),
        ("reserved3", ctypes.c_uint8 * 34),
    ]


class PlayLogRecord(ctypes.Structure):
    """What the sign has played, and how often."""
    _pack_ = 1
    _fields_ = [
        ("PlayTimes", ctypes.c_int32),
        ("TotalSeconds", ctypes.c_int32),
        ("WinID", ctypes.c_int32),
        ("FileName", ctypes.c_char * 256),
        ("Time", ctypes.c_char * 20),
        ("GroupName", ctypes.c_char * 100),
    ]


class SignLogRecord(ctypes.Structure):
    """What was done with the sign, and by whom."""
    _pack_ = 1
    _fields_ = [
        ("Type", ctypes.c_int32),
        ("Operate", ctypes.c_char * 100),
        ("Author", ctypes.c_char * 52),
        ("Result", ctypes.c_char * 200),
        ("DateTime", ctypes.c_char * 20),
    ]


class TempLogRecord(ctypes.Structure):
    """Temperatures over a span of time: highest, lowest, average; outside, inside, in the box."""
    _pack_ = 1
    _fields_ = [
        ("BeginTime", ctypes.c_char * 20),
        ("EndTime", ctypes.c_char * 20),
        ("OutHightTemp", ctypes.c_int32),
        ("OutLowTemp", ctypes.c_int32),
        ("OutAvgTemp", ctypes.c_int32),
        ("InHightTemp", ctypes.c_int32),
        ("InLowTemp", ctypes.c_int32),
        ("InAvgTemp", ctypes.c_int32),
        ("BoxHightTemp", ctypes.c_int32),
        ("BoxLowTemp", ctypes.c_int32),
        ("BoxAvgTemp", ctypes.c_int32),
    ]


class TileInfoRecord(ctypes.Structure):
    """One tile. The 18 columns of the sign's table, which only the sign names, and when they were read."""
    _pack_ = 1
    _fields_ = [
        ("Column1To7", ctypes.c_int32 * 7),
        ("Column8", ctypes.c_char * 16),
        ("Column9", ctypes.c_char * 16),
        ("Column10", ctypes.c_int32),
        ("Column11", ctypes.c_char * 4),
        ("Column12To14", ctypes.c_int32 * 3),
        ("Column15", ctypes.c_char * 52),
        ("Column16", ctypes.c_int32),
        ("Column17", ctypes.c_char * 52),
        ("Column18", ctypes.c_int32),
        ("reserved", ctypes.c_uint8 * 120),
        ("ReadTime", ctypes.c_char * 20),
    ]


class EventLogRecord(ctypes.Structure):
    """One tile. The 18 columns of the sign's table, which only the sign names, and when they were read."""
    _pack_ = 1
    _fields_ = [
        ("EventType", ctypes.c_int32),
        ("Status", ctypes.c_int32),
        ("DateTime", ctypes.c_char * 20),
        ("Note", ctypes.c_char * 100),
    ]


class RadarLogRecord(ctypes.Structure):
    """One measurement of the radar, as the sign means it."""
    _pack_ = 1
    _fields_ = [
        ("First", ctypes.c_uint32),
        ("Second", ctypes.c_uint32),
        ("Time", ctypes.c_char * 20),
    ]


class TJRadarLogRecord(ctypes.Structure):
    """The same of the radar that counts by lanes. Byte0 to Byte7 are those of the sign's record."""
    _pack_ = 1
    _fields_ = [
        ("Lane", ctypes.c_int32),
        ("Byte0", ctypes.c_int32),
        ("Byte1", ctypes.c_int32),
        ("Byte2", ctypes.c_int32),
        ("Byte5", ctypes.c_int32),
        ("Byte3", ctypes.c_int32),
        ("Byte6", ctypes.c_int32),
        ("Byte4", ctypes.c_int32),
        ("Byte7", ctypes.c_int32),
        ("Time", ctypes.c_char * 20),
    ]


class BatInfoLogRecord(ctypes.Structure):
    """The battery at one time, as the sign means it."""
    _pack_ = 1
    _fields_ = [
        ("Value1", ctypes.c_uint32),
        ("Value2", ctypes.c_uint32),
        ("Value3", ctypes.c_uint16),
        ("Value4", ctypes.c_uint16),
        ("reserved", ctypes.c_uint8 * 2),
        ("Value5", ctypes.c_uint8),
        ("Value6", ctypes.c_uint8),
        ("Value7To12", ctypes.c_uint16 * 6),
        ("Time", ctypes.c_char * 20),
    ]


class TileTaskState(ctypes.Structure):
    """What vxOndraGetResult gives."""
    _pack_ = 1
    _fields_ = [
        ("progress", ctypes.c_uint8),
        ("state", ctypes.c_uint8),
        ("detail", ctypes.c_uint16),
    ]


class vxPixelRow(ctypes.Structure):
    """A finding: 132 bytes. Texts are cut to their fields and have no terminator when they fill them."""
    _pack_ = 1
    _fields_ = [
        ("Kind", ctypes.c_uint32),
        ("X", ctypes.c_uint32),
        ("Y", ctypes.c_uint16),
        ("Status", ctypes.c_char * 100),
        ("Time", ctypes.c_char * 20),
        ("Number", ctypes.c_uint16),
    ]


class ProjectExtra(ctypes.Structure):
    """What vxCoreProjectInfoEx sends along: 20 bytes that only application and player interpret."""
    _pack_ = 1
    _fields_ = [
        ("bytes", ctypes.c_uint8 * 20),
    ]


class SCH(ctypes.Structure):
    """When a file may play. Dates and times are BCD: the year 2008 is 0x2008, the hour 23 is 0x23. The library stores
    them for the sign and does not interpret them.
    """
    _pack_ = 1
    _fields_ = [
        ("bweek_rep", ctypes.c_uint8),
        ("reserved", ctypes.c_uint8),
        ("b_year", ctypes.c_uint16),
        ("b_month", ctypes.c_uint8),
        ("b_day", ctypes.c_uint8),
        ("b_hour", ctypes.c_uint8),
        ("b_minute", ctypes.c_uint8),
        ("b_date_valid", ctypes.c_uint8),
        ("b_time_valid", ctypes.c_uint8),
        ("e_year", ctypes.c_uint16),
        ("e_month", ctypes.c_uint8),
        ("e_day", ctypes.c_uint8),
        ("e_hour", ctypes.c_uint8),
        ("e_minute", ctypes.c_uint8),
        ("e_date_valid", ctypes.c_uint8),
        ("e_time_valid", ctypes.c_uint8),
    ]


class VXPLAYLIST_FILE_INFO(ctypes.Structure):
    """A file of the list."""
    _pack_ = 1
    _fields_ = [
        ("fileName", ctypes.c_char * 256),
        ("schCount", ctypes.c_uint8),
        ("playTimes", ctypes.c_uint8),
        ("Drive", ctypes.c_char),
        ("Type", ctypes.c_char),
        ("PicStaySec", ctypes.c_uint16),
        ("PicInMode", ctypes.c_uint8),
        ("PicOutMode", ctypes.c_uint8),
        ("SCH", SCH * 256),
        ("pcFileName", ctypes.c_char * 512),
    ]


class VXPLAYLIST_ITEM(ctypes.Structure):
    """One line of a level's listing."""
    _pack_ = 1
    _fields_ = [
        ("kind", ctypes.c_uint8),
        ("name", ctypes.c_char * 256),
    ]


class vxCommunicationSet(ctypes.Structure):
    """How the sign is reached: 84 bytes, a binary contract."""
    _fields_ = [
        ("address", ctypes.c_char * 32),
        ("port", ctypes.c_uint16),
        ("firstSetting", ctypes.c_uint8),
        ("secondSetting", ctypes.c_uint8),
        ("secondAddress", ctypes.c_char * 32),
        ("thirdAddress", ctypes.c_char * 16),
    ]


class vxStatusRecord(ctypes.Structure):
    """The sign's status: 96 bytes. What has no meaning given is the sign's, as replied by vxReadCurrentState. Value0 to
    Value3 are taken from the state word (its bytes 1, 2, 4 and 6) where the record has a 0.
    """
    _pack_ = 1
    _fields_ = [
        ("Value0", ctypes.c_uint8),
        ("Value1", ctypes.c_uint8),
        ("Value2", ctypes.c_uint8),
        ("Value3", ctypes.c_uint8),
        ("reserved4", ctypes.c_uint8 * 60),
        ("Longitude", ctypes.c_char),
        ("Latitude", ctypes.c_char),
        ("reserved66", ctypes.c_uint8 * 2),
        ("LongitudeDegrees", ctypes.c_uint16),
        ("LongitudeMinutes", ctypes.c_uint16),
        ("LongitudeSeconds", ctypes.c_uint16),
        ("LatitudeDegrees", ctypes.c_uint16),
        ("LatitudeMinutes", ctypes.c_uint16),
        ("LatitudeSeconds", ctypes.c_uint16),
        ("reserved80", ctypes.c_uint8 * 4),
        ("Mode", ctypes.c_uint8),
        ("reserved85", ctypes.c_uint8 * 11),
    ]


class vxWaringLogRow(ctypes.Structure):
    """A warning out of the sign's ring: 380 bytes."""
    _pack_ = 1
    _fields_ = [
        ("Level", ctypes.c_uint32),
        ("Time", ctypes.c_char * 20),
        ("SignName", ctypes.c_char * 100),
        ("Text", ctypes.c_char * 256),
    ]


class vxWaringReportRow(ctypes.Structure):
    """A warning out of the sign's report: 392 bytes. Texts are cut to their fields, with a terminator."""
    _pack_ = 1
    _fields_ = [
        ("Kind", ctypes.c_uint32),
        ("X", ctypes.c_uint8),
        ("Y", ctypes.c_uint8),
        ("Name", ctypes.c_char * 64),
        ("Value", ctypes.c_char * 256),
        ("Time", ctypes.c_char * 66),
    ]


class TileStatRecord(ctypes.Structure):
    """How the result of a status task begins."""
    _pack_ = 1
    _fields_ = [
        ("width", ctypes.c_uint8),
        ("height", ctypes.c_uint8),
        ("reserved", ctypes.c_uint8),
        ("firmware", ctypes.c_uint16),
        ("tileModel", ctypes.c_uint8),
    ]


class TilePixelRecord(ctypes.Structure):
    """The calibration of one pixel: a matrix of 3 by 3, row after row."""
    _pack_ = 1
    _fields_ = [
        ("coefficients", ctypes.c_uint16 * 9),
    ]


class CompactPixelRecord(ctypes.Structure):
    """The same in a file of tileModel 0: the diagonal in eight bits, the others in four. From bit 15 down each word has
    the coefficients 0, 1, 2; 4, 3, 5; 8, 6, 7.
    """
    _pack_ = 1
    _fields_ = [
        ("words", ctypes.c_uint16 * 3),
    ]


class TilePixelFileHeader(ctypes.Structure):
    """How a tile pixel file begins."""
    _pack_ = 1
    _fields_ = [
        ("magic", ctypes.c_uint16),
        ("headerLength", ctypes.c_uint16),
        ("version", ctypes.c_uint16 * 2),
        ("sum", ctypes.c_uint16),
        ("year", ctypes.c_uint16),
        ("month", ctypes.c_uint8),
        ("day", ctypes.c_uint8),
        ("hour", ctypes.c_uint8),
        ("minute", ctypes.c_uint8),
        ("second", ctypes.c_uint8),
        ("dayOfWeek", ctypes.c_uint8),
        ("bodyLength", ctypes.c_uint32),
        ("reserved", ctypes.c_uint8 * 10),
    ]


class TilePixelBlockHeader(ctypes.Structure):
    """What stands ahead of each module's records where a file has modules."""
    _pack_ = 1
    _fields_ = [
        ("magic", ctypes.c_uint16),
        ("crc", ctypes.c_uint16),
        ("bodyLength", ctypes.c_uint32),
        ("date", ctypes.c_uint16),
        ("time", ctypes.c_uint16),
        ("reserved", ctypes.c_uint8 * 52),
    ]


class vxCrayState(ctypes.Structure):
    """The state that vxCrayTest shows: 6 bytes, a binary contract."""
    _pack_ = 1
    _fields_ = [
        ("first", ctypes.c_uint32),
        ("second", ctypes.c_uint16),
    ]


class TrafficDumpHeader(ctypes.Structure):
    """What a dump file begins with: 12 bytes; the block of the controller follows."""
    _pack_ = 1
    _fields_ = [
        ("magic", ctypes.c_uint32),
        ("length", ctypes.c_uint32),
        ("reserved", ctypes.c_uint16),
        ("time", ctypes.c_uint16),
    ]


class TrafficLogEntry(ctypes.Structure):
    """A record of the error log: 380 bytes."""
    _pack_ = 1
    _fields_ = [
        ("level", ctypes.c_uint32),
        ("time", ctypes.c_char * 20),
        ("signName", ctypes.c_char * 100),
        ("text", ctypes.c_char * 256),
    ]


class TrafficTempEntry(ctypes.Structure):
    """A record of the temperature log: 128 bytes."""
    _pack_ = 1
    _fields_ = [
        ("time", ctypes.c_char * 20),
        ("signName", ctypes.c_char * 100),
        ("sample", ctypes.c_uint32),
        ("sourceId", ctypes.c_uint32),
    ]


class ZoneHead(ctypes.Structure):
    """What stands before the zones of a page: 8 bytes."""
    _pack_ = 1
    _fields_ = [
        ("head", ctypes.c_uint8 * 3),
        ("zoneCount", ctypes.c_uint8),
        ("tail", ctypes.c_uint8 * 4),
    ]


class ZoneEntry(ctypes.Structure):
    """One zone: 12 bytes."""
    _pack_ = 1
    _fields_ = [
        ("bytes", ctypes.c_uint8 * 12),
    ]


class DisplayHead(ctypes.Structure):
    """What stands before the display data of a zone: 32 bytes."""
    _pack_ = 1
    _fields_ = [
        ("head", ctypes.c_uint8 * 28),
        ("dataLength", ctypes.c_uint16),
        ("tail", ctypes.c_uint8 * 2),
    ]


class ContentHead(ctypes.Structure):
    """What stands before the content of a zone: 8 bytes."""
    _pack_ = 1
    _fields_ = [
        ("head", ctypes.c_uint8 * 6),
        ("dataLength", ctypes.c_uint16),
    ]


class SpeZoneHead(ctypes.Structure):
    """What stands before the data of special zones: 12 bytes."""
    _pack_ = 1
    _fields_ = [
        ("head", ctypes.c_uint8 * 6),
        ("wordCount", ctypes.c_uint16),
        ("tail", ctypes.c_uint8 * 4),
    ]


vxOnOpen = ctypes.CFUNCTYPE(None, ctypes.c_void_p)
vxOnClose = ctypes.CFUNCTYPE(None, ctypes.c_void_p)
vxOnProgress = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_uint32, ctypes.c_uint32)
vxOnRead = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_uint32, ctypes.c_uint32)
vxOnWrite = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_uint32, ctypes.c_uint32)
vxOnLog = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_uint32, ctypes.c_uint32, ctypes.c_char_p)
vxOnMessageToGif = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p, ctypes.c_uint32, ctypes.c_uint32)
vxOnTempPath = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_void_p, ctypes.c_uint32)
vxOnFolderEntry = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_void_p, ctypes.c_void_p)
vxOnPlayLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(PlayLogRecord))
vxOnSignLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(SignLogRecord))
vxOnTempLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(TempLogRecord))
vxOnTileInfo = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(TileInfoRecord))
vxOnEventLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(EventLogRecord))
vxOnRadarLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(RadarLogRecord))
vxOnTJRadarLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(TJRadarLogRecord))
vxOnBatInfoLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(BatInfoLogRecord))
vxOnPixelInfo = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(vxPixelRow))
vxOnPixelError = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.POINTER(vxPixelRow))
vxOnStatusInfo = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.c_uint32, ctypes.POINTER(vxStatusRecord), ctypes.c_void_p, ctypes.c_char_p)
vxOnWaringLog = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.POINTER(vxWaringLogRow))
vxOnWaringReport = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.POINTER(vxWaringReportRow))
vxOnTrafficError = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.POINTER(TrafficLogEntry))
vxOnTrafficTemp = ctypes.CFUNCTYPE(ctypes.c_uint32, ctypes.POINTER(TrafficTempEntry))


class vxApiConfig(ctypes.Structure):
    """The configuration of one thread: 192 bytes, a binary contract. A try writes the request, for timeoutMs at most,
    and gathers the reply. Over a channel that is in time as long as timeoutMs is not over, in however many pieces it
    comes. A try that gets nothing ends after timeoutMs, with onRead after about twice that. It counts reads rather
    than time, though: the header of a reply with nothing behind it makes a try last up to twice timeoutMs over a
    channel, with onRead up to four times timeoutMs and half a second. A call makes an exchange for each piece of
    what it moves or waits for, of up to retries tries, and ends with the first that fails; some go on to a second
    and a third. So a sign that never answers holds a call for the time of a few exchanges, and one that answers for
    as many as it announces: pieces of a file of up to 4 GB, rows of a table, polls of a task. Where a header gives
    no bound of its own, onProgress is the place for the caller's: there it may set abortFlag. A TCP connection that
    is not made within retries x timeoutMs gives VX_COMMUNICATION. abortFlag ends whatever waits: for a connection,
    for an answer, for room to write, between two polls of a long operation. A wait looks at it every 50 ms, and at
    once behind a signal that comes in the thread; one of the caller's own, in onRead or onWrite, has its time. The
    next try then gives VX_ABORTED; a last one that was cut short gives VX_COMMUNICATION, as for any other silence.
    What has reached the sign stays there.
    """
    _fields_ = [
        ("kind", ctypes.c_uint32),
        ("initialised", ctypes.c_uint32),
        ("host", ctypes.c_char * 32),
        ("serialName", ctypes.c_char * 16),
        ("port", ctypes.c_uint32),
        ("baudRate", ctypes.c_uint32),
        ("reserved1", ctypes.c_uint8 * 16),
        ("sourceAddress", ctypes.c_uint16),
        ("destinationAddress", ctypes.c_uint16),
        ("retries", ctypes.c_uint32),
        ("timeoutMs", ctypes.c_uint32),
        ("abortFlag", ctypes.c_uint32),
        ("progressTotal", ctypes.c_uint16),
        ("progressPos", ctypes.c_uint16),
        ("dataSize", ctypes.c_uint16),
        ("reserved2", ctypes.c_uint8 * 26),
        ("onOpen", vxOnOpen),
        ("onClose", vxOnClose),
        ("onProgress", vxOnProgress),
        ("onRead", vxOnRead),
        ("onWrite", vxOnWrite),
        ("onLog", vxOnLog),
        ("onMessageToGif", vxOnMessageToGif),
        ("onTempPath", vxOnTempPath),
    ]


# {structure: (bytes, {field: offset})} as the compiler has them.
LAYOUTS: dict[type[ctypes.Structure], tuple[int, dict[str, int]]] = {
    vxApiConfig: (192, {"kind": 0, "initialised": 4, "host": 8, "serialName": 40, "port": 56, "baudRate": 60, "reserved1": 64, "sourceAddress": 80, "destinationAddress": 82, "retries": 84, "timeoutMs": 88, "abortFlag": 92, "progressTotal": 96, "progressPos": 98, "dataSize": 100, "reserved2": 102, "onOpen": 128, "onClose": 136, "onProgress": 144, "onRead": 152, "onWrite": 160, "onLog": 168, "onMessageToGif": 176, "onTempPath": 184}),
    TileFileHeader: (32, {"magic": 0, "headerLength": 2, "reserved": 4, "fileType": 6, "reserved2": 8, "stamps": 10, "reserved3": 14, "bodyLength": 16, "reserved4": 20}),
    TileStaRecord: (96, {"reserved": 0, "flags": 16, "reserved2": 17, "width": 52, "height": 54, "moduleWidth": 56, "moduleHeight": 58, "modulesAcross": 60, "modulesDown": 61, "reserved3": 62}),
    PlayLogRecord: (388, {"PlayTimes": 0, "TotalSeconds": 4, "WinID": 8, "FileName": 12, "Time": 268, "GroupName": 288}),
    SignLogRecord: (376, {"Type": 0, "Operate": 4, "Author": 104, "Result": 156, "DateTime": 356}),
    TempLogRecord: (76, {"BeginTime": 0, "EndTime": 20, "OutHightTemp": 40, "OutLowTemp": 44, "OutAvgTemp": 48, "InHightTemp": 52, "InLowTemp": 56, "InAvgTemp": 60, "BoxHightTemp": 64, "BoxLowTemp": 68, "BoxAvgTemp": 72}),
    TileInfoRecord: (332, {"Column1To7": 0, "Column8": 28, "Column9": 44, "Column10": 60, "Column11": 64, "Column12To14": 68, "Column15": 80, "Column16": 132, "Column17": 136, "Column18": 188, "reserved": 192, "ReadTime": 312}),
    EventLogRecord: (128, {"EventType": 0, "Status": 4, "DateTime": 8, "Note": 28}),
    RadarLogRecord: (28, {"First": 0, "Second": 4, "Time": 8}),
    TJRadarLogRecord: (56, {"Lane": 0, "Byte0": 4, "Byte1": 8, "Byte2": 12, "Byte5": 16, "Byte3": 20, "Byte6": 24, "Byte4": 28, "Byte7": 32, "Time": 36}),
    BatInfoLogRecord: (48, {"Value1": 0, "Value2": 4, "Value3": 8, "Value4": 10, "reserved": 12, "Value5": 14, "Value6": 15, "Value7To12": 16, "Time": 28}),
    TileTaskState: (4, {"progress": 0, "state": 1, "detail": 2}),
    vxPixelRow: (132, {"Kind": 0, "X": 4, "Y": 8, "Status": 10, "Time": 110, "Number": 130}),
    ProjectExtra: (20, {"bytes": 0}),
    SCH: (18, {"bweek_rep": 0, "reserved": 1, "b_year": 2, "b_month": 4, "b_day": 5, "b_hour": 6, "b_minute": 7, "b_date_valid": 8, "b_time_valid": 9, "e_year": 10, "e_month": 12, "e_day": 13, "e_hour": 14, "e_minute": 15, "e_date_valid": 16, "e_time_valid": 17}),
    VXPLAYLIST_FILE_INFO: (5384, {"fileName": 0, "schCount": 256, "playTimes": 257, "Drive": 258, "Type": 259, "PicStaySec": 260, "PicInMode": 262, "PicOutMode": 263, "SCH": 264, "pcFileName": 4872}),
    VXPLAYLIST_ITEM: (257, {"kind": 0, "name": 1}),
    vxCommunicationSet: (84, {"address": 0, "port": 32, "firstSetting": 34, "secondSetting": 35, "secondAddress": 36, "thirdAddress": 68}),
    vxStatusRecord: (96, {"Value0": 0, "Value1": 1, "Value2": 2, "Value3": 3, "reserved4": 4, "Longitude": 64, "Latitude": 65, "reserved66": 66, "LongitudeDegrees": 68, "LongitudeMinutes": 70, "LongitudeSeconds": 72, "LatitudeDegrees": 74, "LatitudeMinutes": 76, "LatitudeSeconds": 78, "reserved80": 80, "Mode": 84, "reserved85": 85}),
    vxWaringLogRow: (380, {"Level": 0, "Time": 4, "SignName": 24, "Text": 124}),
    vxWaringReportRow: (392, {"Kind": 0, "X": 4, "Y": 5, "Name": 6, "Value": 70, "Time": 326}),
    TileStatRecord: (6, {"width": 0, "height": 1, "reserved": 2, "firmware": 3, "tileModel": 5}),
    TilePixelRecord: (18, {"coefficients": 0}),
    CompactPixelRecord: (6, {"words": 0}),
    TilePixelFileHeader: (32, {"magic": 0, "headerLength": 2, "version": 4, "sum": 8, "year": 10, "month": 12, "day": 13, "hour": 14, "minute": 15, "second": 16, "dayOfWeek": 17, "bodyLength": 18, "reserved": 22}),
    TilePixelBlockHeader: (64, {"magic": 0, "crc": 2, "bodyLength": 4, "date": 8, "time": 10, "reserved": 12}),
    vxCrayState: (6, {"first": 0, "second": 4}),
    TrafficDumpHeader: (12, {"magic": 0, "length": 4, "reserved": 8, "time": 10}),
    TrafficLogEntry: (380, {"level": 0, "time": 4, "signName": 24, "text": 124}),
    TrafficTempEntry: (128, {"time": 0, "signName": 20, "sample": 120, "sourceId": 124}),
    ZoneHead: (8, {"head": 0, "zoneCount": 3, "tail": 4}),
    ZoneEntry: (12, {"bytes": 0}),
    DisplayHead: (32, {"head": 0, "dataLength": 28, "tail": 30}),
    ContentHead: (8, {"head": 0, "dataLength": 6}),
    SpeZoneHead: (12, {"head": 0, "wordCount": 6, "tail": 8}),
}

# {code: (text, advice)} of all results.
WORDS: dict[int, tuple[str, str]] = {
    0: ('OK', ''),
    1: ('SNMP Read/Write Faild', ''),
    2: ('Arguments Error', 'look at the arguments: a text, path or payload may be too long'),
    3: ('DLL NOT Init Error', ''),
    4: ('Unknow Error!', ''),
    5: ('Unknow Error!', ''),
    256: ('DLL Call Error', ''),
    257: ('DLL Call Error', ''),
    258: ('File Format Error', ''),
    259: ("Can't Modify Error", ''),
    260: ('Task Not Exist Error', ''),
    261: ('DLL NO THIS FUNCTION Error', ''),
    262: ('Task Process Unkown Error', ''),
    263: ('Sign not connected or NOT 3G connected', ''),
    512: ('DB Open Error', ''),
    513: ('DB CMD EXECUTE Error', ''),
    514: ('DB Exception Error', ''),
    3072: ('CtrlBoard Task In Buf!', ''),
    3073: ('CtrlBoard Task Success!', ''),
    3074: ('CtrlBoard Task Queue Error!', 'wait until the other tasks of the tiles are done'),
    3075: ('CtrlBoard Task Processing!', 'the tile is still at it: wait, then look at it with tile status'),
    3076: ('CtrlBoard Bus Error!', 'check the cable and the power of the tile, and try once more'),
    3077: ('CtrlBoard Retry Exceed!', 'check the cable and the power of the tile, and try once more'),
    3078: ('CtrlBoard Normal Error!', 'look at the tile with tile status; its calibration may be locked'),
    3079: ('CtrlBoard Task ID Error!', ''),
    3080: ('CtrlBoard Brocast Error!', 'name one tile'),
    3081: ('CtrlBoard LDU Ctrl Error!', ''),
    3089: ('CtrlBoard LDU Ctrl Addr Error!', 'check the number of the tile, and its port'),
    3090: ('CtrlBoard TWI Error!', ''),
    3091: ('CtrlBoard PixelPro Error!', 'check --module and --kind: the file is not in the order of this tile'),
    4353: ('Oversize when reading!', ''),
    4354: ('The Address Invalid!', ''),
    7937: ('Update firmware program Failed!', ''),
    7938: ('Updating...', ''),
    7939: ('No update operation!', ''),
    8192: ('Memory allocation Fail!', ''),
    8449: ('Data size exceeds 320K when writing a file!', 'send the file in parts, or smaller'),
    8450: ('Not enough space!', 'free some room on that drive with rm, or write to another drive'),
    8451: ('Not enough space in driver C !', 'free some room on that drive with rm, or write to another drive'),
    8452: ('Not enough space in driver D !!', 'free some room on that drive with rm, or write to another drive'),
    8453: ('Not enough space in driver E !', 'free some room on that drive with rm, or write to another drive'),
    8454: ('Not enough space in driver F !', 'free some room on that drive with rm, or write to another drive'),
    8455: ('Not enough space in driver G !', 'free some room on that drive with rm, or write to another drive'),
    10497: ('Data size exceeds 1024 bytes when writing an emergency message!', ''),
    14049: ('The PageID is invalid!', 'this sign may have fewer pages: see zone list'),
    14050: ('The Page has not been configured!', 'divide the page first, with zone divide'),
    14051: ('The PageCount must be less then 13 !', ''),
    14052: ('The ZoneID is invalid!', 'this sign may have fewer zones on a page: see zone list'),
    14053: ('The Zone has not been configured!', 'divide the page into more zones, with zone divide'),
    14054: ('The PageCount is wrong!, and must be less then 21 !', ''),
    14849: ('Not Support the Command!', 'this sign does not know the command; its firmware may be older or newer'),
    19279: ('Packet Process OK', ''),
    20481: ('Open Com Error!', ''),
    20482: ('TimeOut to Connenct for TCP!', ''),
    20483: ('Failure in Operation!', 'try once more; the sign may have been busy'),
    20484: ('Inconsistent Synchronization code!', 'is that the port of a sign? Look at its reply with raw'),
    20485: ('Inconsistent Source Address!', ''),
    20486: ('Inconsistent Destination Address!', ''),
    20487: ('Inconsistent Pack ID!', ''),
    20488: ('Inconsistent Major category!', ''),
    20489: ('Inconsistent Minor category!', ''),
    20496: ('Inconsistent Sum check!', ''),
    20497: ('Operation Abort!', ''),
    20498: ('Play List is not exists!', ''),
    20499: ('Unexpected file format!', ''),
    20736: ('Communication Error!', 'check address, port, power and cable; give a slow line more time with --timeout and --retries'),
    20737: ('Failed open PC file!', 'check that the file on this PC, or the folder it goes to, is there and may be used'),
    20738: ('PC File is empty!', 'the sign takes no empty file'),
    20993: ('Time set unsuccessful!', 'set a time that exists; clock --set takes YYYY-MM-DD HH:MM:SS'),
    21061: ('Packet Process Error', ''),
    26369: ('No current display file!', ''),
    26370: ('Failure in opening current display file!', ''),
    26371: ('Current display file oversized and can not be read. Please use extended reading command!', ''),
    29185: ('Format failure!', 'check the letter of the drive; try once more'),
    29441: ('Failure in creating a folder!', 'check drive and path; a file may have that name'),
    29697: ('Failure in renaming a file!', 'check that the file is there and the new name is not'),
    29698: ('Incorrect path in renaming!', 'the new name belongs into the same folder'),
    29953: ('Failure in moving a file!', 'check that the file and the new folder are there, and the new name is not'),
    30209: ('Failure in deleting a file!', 'check drive, folder and name of the file on the sign'),
    31489: ('Failure in opening a file!', 'check drive, folder and name of the file on the sign'),
    32001: ('Failure in reading disk information', 'this sign may not have that drive: try df alone'),
    32257: ('The file not exist!', 'check drive, folder and name of the file on the sign'),
    33537: ('Buffer 1 and Buffer 2 displaying. Buffer 3 ready to receive data!', ''),
    33538: ('Buffer 2 and Buffer 3 displaying. Buffer 1 ready to receive data!', ''),
    33539: ('Buffer 3 and Buffer 2 displaying. Buffer 1 ready to receive data!', ''),
    33541: ('System not in the unlimited connection display status!', 'start the ticker first'),
    33542: ('Receiving Buffer full!', 'wait until what runs has left the face'),
    33543: ('Incorrect data format!', 'send less text'),
    36864: ('Process OK', ''),
    36865: ('Head error of com synchronization!', ''),
    36866: ('Sum check error!', 'noise on the line: check cable and speed'),
    36867: ('Address error!', 'check --destination'),
    36868: ('Major category invalid!', 'this sign does not know the command; its firmware may be older or newer'),
    36869: ('Minor category invalid!', 'this sign does not know the command; its firmware may be older or newer'),
    36870: ('Incorrect data packet length!', 'try a smaller --chunk'),
    36872: ('File does not exist!', 'check drive, folder and name of the file on the sign'),
    36873: ('End of file!', ''),
    36880: ('Failure in opening the file!', 'check drive, folder and name of the file on the sign'),
    36881: ('Not support this command', 'this sign cannot do that: look at its kind, its firmware and the arguments'),
    36882: ('File write-in failure!', 'check that the drive is there and has room'),
    36883: ('The packet size is wrong!', 'look at the sizes that you give, or try a smaller --chunk'),
    36884: ('The Packet ID is wrong!', ''),
    36885: ('Delete the File failed!', 'check drive, folder and name of the file on the sign'),
    36912: ('Please login first', 'the sign wants a login first: see login'),
    36913: ('Password incorrect!', 'check the password; case counts'),
    36914: ('User name incorrect!', 'check the name of the user'),
    36915: ('Original password incorrect!', 'check the old password'),
    36917: ('The display is being used by others!', 'somebody else is using the sign: wait, and try once more'),
    36918: ('User not exist or permission denied', 'log in as a user who may do this'),
    43521: ('The Key for Password is wrong!', ''),
    43522: ('Data is available only when the display is starting up!', ''),
    45313: ('FTP Error!', ''),
    45314: ('HTTP Error!', ''),
    49410: ('File Lock By Other User!', ''),
    49411: ('Please Lock File First!', ''),
    49952: ('File Sync DB Error!', ''),
    49968: ('User Error or Password Error!', ''),
    49984: ('Add Task Error!', ''),
    65535: ('CtrlBoard Task Queue Full Error!', 'wait until the other tasks of the tiles are done'),
}


def vxAPIVersion() -> bytes:
    """The version of the library, a constant text: "2.3.10 2020-05-13"."""
    return text("vxAPIVersion", ctypes.c_char_p)()


def vxInitAPI(config: vxApiConfig) -> int:
    """Copies *config into the calling thread's record and marks it initialised. Nothing is sent; values out of range
    are put right by the commands, in the thread's record. A later call replaces the record, abortFlag included.
    Returns 0, 1 when the thread's records cannot be made, VX_ARGUMENTS for null.
    """
    return number("vxInitAPI", ctypes.c_uint32, ctypes.POINTER(vxApiConfig))(config)


def vxFreeAPI() -> int:
    """Does nothing; returns 0. A thread's records go when the thread ends."""
    return number("vxFreeAPI", ctypes.c_uint32)()


def vxTLSGet(which: int) -> Optional[int]:
    """The calling thread's live record, made on demand: the way to reach abortFlag after vxInitAPI has copied it.
    which: vxThreadRecord. Null for any other value, or when memory runs out. The first byte of the state says
    whether it holds the sign's properties (see vxInitProperty): a thread that turns to another sign sets it to 0,
    since vxInitAPI leaves it as it is.
    """
    return pointer("vxTLSGet", ctypes.c_void_p, _int)(which)


def vxSocketup() -> int:
    """Start and stop socket support. Loading the library starts it; both return 0."""
    return number("vxSocketup", ctypes.c_uint32)()


def vxCleanSocket() -> int:
    """Start and stop socket support. Loading the library starts it; both return 0."""
    return number("vxCleanSocket", ctypes.c_uint32)()


def vxShowMsgToNmg(
    text: Buffer, size: int, path: PathText, font: int, colour: int, mode: int, staySec: int
) -> int:
    """Writes a text message of size bytes to the file path, in the file form ("QZ00SAX"). The text goes in as it
    stands, control bytes included. A size of 0 gives VX_ARGUMENTS.
    """
    return number("vxShowMsgToNmg", ctypes.c_uint32, ctypes.c_void_p, _uint32, Path, _int, _uint32, _uint32, _uint32)(room(text, size), size, path, font, colour, mode, staySec)


def vxShowBmpToNmg(bmpPath: PathText, nmgPath: PathText, mode: int, staySec: int) -> int:
    """Wraps a picture file of any type, unchanged, into an NMG file in the transmission form."""
    return number("vxShowBmpToNmg", ctypes.c_uint32, Path, Path, _uint32, _uint32)(bmpPath, nmgPath, mode, staySec)


def vxBmp2Nmg(bmpPath: PathText, nmgPath: PathText, staySec: int, mode: int) -> int:
    """The same in the file form. Note the order of staySec and mode."""
    return number("vxBmp2Nmg", ctypes.c_uint32, Path, Path, _uint16, _uint8)(bmpPath, nmgPath, staySec, mode)


def vxBlackScreen() -> int:
    """Turns the face dark, and lets it show again what the sign plays."""
    return number("vxBlackScreen", ctypes.c_uint32)()


def vxEndBlackScreen() -> int:
    """Turns the face dark, and lets it show again what the sign plays."""
    return number("vxEndBlackScreen", ctypes.c_uint32)()


def vxResetSystem() -> int:
    """Starts the sign's controller again; the second form starts it cold."""
    return number("vxResetSystem", ctypes.c_uint32)()


def vxResetSystemCool() -> int:
    """Starts the sign's controller again; the second form starts it cold."""
    return number("vxResetSystemCool", ctypes.c_uint32)()


def vxResetSystemToDataFlash() -> int:
    """Resets the sign to what its data flash holds and waits for the end of it: up to 100 polls, 30 ms apart.
    onProgress is called after each with its number from 0 on, and with 100 at the end; progressTotal becomes 100 and
    progressPos the number. Returns the sign's refusal of the reset, or the result of the last poll.
    """
    return number("vxResetSystemToDataFlash", ctypes.c_uint32)()


def vxPowerOnOff(on: int) -> int:
    """Power of the face: off for 0, on otherwise; and its two state bytes."""
    return number("vxPowerOnOff", ctypes.c_uint32, _int8)(on)


def vxGetPowerState(first: ctypes.c_uint8, second: ctypes.c_uint8) -> int:
    """Power of the face: off for 0, on otherwise; and its two state bytes."""
    return number("vxGetPowerState", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8))(first, second)


def vxBrightAdjust(level: int) -> int:
    """Brightness: one level, two, or 8 bytes for the sides of the sign."""
    return number("vxBrightAdjust", ctypes.c_uint32, _uint8)(level)


def vxBrightAdjustEx(first: int, second: int) -> int:
    """Brightness: one level, two, or 8 bytes for the sides of the sign."""
    return number("vxBrightAdjustEx", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxBrightAdjustSides(sides: Buffer) -> int:
    """Brightness: one level, two, or 8 bytes for the sides of the sign."""
    return number("vxBrightAdjustSides", ctypes.c_uint32, ctypes.c_void_p)(room(sides, 8))


def vxChangeBaudRate(rateCode: int) -> int:
    """Serial speed of the sign. The thread's own baudRate stays as it is."""
    return number("vxChangeBaudRate", ctypes.c_uint32, _uint8)(rateCode)


def vxSetEthCheck(value: int) -> int:
    """Checking of the sign's Ethernet line."""
    return number("vxSetEthCheck", ctypes.c_uint32, _uint8)(value)


def vxReadEthCheck(first: ctypes.c_uint8, second: ctypes.c_uint8) -> int:
    """Checking of the sign's Ethernet line."""
    return number("vxReadEthCheck", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8))(first, second)


def vxSwitchOnlineOffline(mode: int) -> int:
    """Switches the sign between online and offline operation; mode is the sign's."""
    return number("vxSwitchOnlineOffline", ctypes.c_uint32, _uint8)(mode)


def vxSetBeacon(value: ctypes.c_uint64) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxSetBeacon", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint64))(value)


def vxGetBeacon(out: Buffer) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxGetBeacon", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 8))


def vxSetSignBeacon(value: ctypes.c_uint64) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxSetSignBeacon", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint64))(value)


def vxGetSignBeacon(out: Buffer) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxGetSignBeacon", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 8))


def vxSetExternalEquipment(value: ctypes.c_uint64) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxSetExternalEquipment", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint64))(value)


def vxGetExternalEquipment(out: Buffer) -> int:
    """Beacons, the sign's own beacon and external equipment: 8 bytes each. What is read is as long as the sign's
    answer, 8 bytes at most; the rest of out stays as it was.
    """
    return number("vxGetExternalEquipment", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 8))


def vxGeneratorSet(first: int, second: int, out: Optional[Buffer]) -> int:
    """Sets the generator. out, if not null, gets up to 8 bytes of the sign's answer."""
    return number("vxGeneratorSet", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p)(first, second, writable(out, 8))


def vxCommitStatusRW(first: int, second: int, out: Optional[ctypes.c_uint8]) -> int:
    """Sets or reads the commit status. out, if not null, gets one byte."""
    return number("vxCommitStatusRW", ctypes.c_uint32, _uint8, _uint8, ctypes.POINTER(ctypes.c_uint8))(first, second, out)


def vxSetLCS(value: int) -> int:
    """The LCS setting and the two FH settings."""
    return number("vxSetLCS", ctypes.c_uint32, _uint8)(value)


def vxGetLCS(out: ctypes.c_uint8) -> int:
    """The LCS setting and the two FH settings."""
    return number("vxGetLCS", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8))(out)


def vxSetFH(first: int, second: int) -> int:
    """The LCS setting and the two FH settings."""
    return number("vxSetFH", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxGetFH(first: ctypes.c_uint8, second: ctypes.c_uint8) -> int:
    """The LCS setting and the two FH settings."""
    return number("vxGetFH", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8))(first, second)


def vxPlayVoice(first: int, second: int, data: Buffer, dataLength: int) -> int:
    """Speaks dataLength bytes of voice data."""
    return number("vxPlayVoice", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p, _uint8)(first, second, room(data, dataLength), dataLength)


def vxDirectTileTest(testCode: int, port: int, tile: int) -> int:
    """Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's."""
    return number("vxDirectTileTest", ctypes.c_uint32, _uint8, _uint8, _uint16)(testCode, port, tile)


def vxDirectTileCMD(command: int, port: int, tile: int, data: Buffer, dataLength: int) -> int:
    """Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's."""
    return number("vxDirectTileCMD", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.c_void_p, _uint32)(command, port, tile, room(data, dataLength), dataLength)


def vxDirectTileReadFileEx(path: PathText, fileType: int, port: int, tile: int, extra: int) -> int:
    """Reads a file of a tile. VX_NO_RECORD when a local file cannot be made or written, VX_NO_MAGIC when what comes
    does not begin like a file or would have 4 GB and more. A tile that sends less than it announced leaves a shorter
    file. A calibration that cannot be converted is no failure; then only the tile's form is there. extra is the
    tile's. A tile is asked for as many pieces of 264 bytes as it announces, with onProgress behind each: millions,
    if it says so.
    """
    return number("vxDirectTileReadFileEx", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _uint8)(path, fileType, port, tile, extra)


def vxDirectTileWriteFileEx(path: PathText, fileType: int, port: int, tile: int, extra: int) -> int:
    """Writes a file to a tile. VX_NO_RECORD when the local file cannot be read, for a calibration also when it cannot
    be converted, when the tile's status cannot be read or when the tile is locked; nothing has been sent then. What
    an earlier call converted stays when there is nothing to take its place. An empty file gives 0.
    """
    return number("vxDirectTileWriteFileEx", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _uint8)(path, fileType, port, tile, extra)


def vxDirectTilePHYWriteCoefficent1(port: int, tile: int) -> int:
    """Two steps by which a tile takes over coefficients. The first is command 15. The second converts the calibration
    at path, sends the commands 16 and 17 with params, and reads the tile's coefficients into the local file
    "c:/port<port>/<tile as four hexadecimal digits>.mcc" in 21 tries at most; params[64] other than 0 ends it after
    command 16. It gives 0 whatever comes of that, but 1 when only the last try succeeds. reserved is not used.
    """
    return number("vxDirectTilePHYWriteCoefficent1", ctypes.c_uint32, _uint8, _uint16)(port, tile)


def vxDirectTilePHYWriteCoefficent2(
    path: PathText, port: int, tile: int, reserved: int, params: Buffer, paramsLength: int
) -> int:
    """Two steps by which a tile takes over coefficients. The first is command 15. The second converts the calibration
    at path, sends the commands 16 and 17 with params, and reads the tile's coefficients into the local file
    "c:/port<port>/<tile as four hexadecimal digits>.mcc" in 21 tries at most; params[64] other than 0 ends it after
    command 16. It gives 0 whatever comes of that, but 1 when only the last try succeeds. reserved is not used.
    """
    return number(
        "vxDirectTilePHYWriteCoefficent2", ctypes.c_uint32, Path, _uint8, _uint16, _uint64, ctypes.c_void_p, _uint32
    )(path, port, tile, reserved, room(params, paramsLength), paramsLength)


def vxWriteCmdBuf(buffer: Buffer, length: int) -> int:
    """Sends bytes as they are and waits timeoutMs of the configuration for whatever comes back, which is dropped: 0 for
    any byte, VX_NO_ANSWER for none, VX_ABORTED when abortFlag ended the wait.
    """
    return number("vxWriteCmdBuf", ctypes.c_uint32, ctypes.c_void_p, _uint32)(room(buffer, length), length)


def vxExtraCollectCtrl(data: Buffer, board: int) -> int:
    """Collection: sends 8 bytes of data; reads up to 38 bytes."""
    return number("vxExtraCollectCtrl", ctypes.c_uint32, ctypes.c_void_p, _uint8)(room(data, 8), board)


def vxExtraCollectRead(buffer: Buffer, board: int) -> int:
    """Collection: sends 8 bytes of data; reads up to 38 bytes."""
    return number("vxExtraCollectRead", ctypes.c_uint32, ctypes.c_void_p, _uint8)(writable(buffer, 38), board)


def vxExtraIOCtrl(data: Buffer, board: int) -> int:
    """Inputs and outputs: sends 16 bytes of data; reads up to 68 bytes."""
    return number("vxExtraIOCtrl", ctypes.c_uint32, ctypes.c_void_p, _uint8)(room(data, 16), board)


def vxExtraIORead(buffer: Buffer, board: int) -> int:
    """Inputs and outputs: sends 16 bytes of data; reads up to 68 bytes."""
    return number("vxExtraIORead", ctypes.c_uint32, ctypes.c_void_p, _uint8)(writable(buffer, 68), board)


def vxExtraWifiUnlock(data: Buffer, length: int, result: ctypes.c_uint32) -> int:
    """Unlocks the Wi-Fi module with length bytes of data; *result becomes its answer."""
    return number("vxExtraWifiUnlock", ctypes.c_uint32, ctypes.c_void_p, _uint8, ctypes.POINTER(ctypes.c_uint32))(room(data, length), length, result)


def vxExtraWifiSetInfo(wifiInfo: Buffer) -> int:
    """The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them with up
    to 44 of the answer.
    """
    return number("vxExtraWifiSetInfo", ctypes.c_uint32, ctypes.c_void_p)(room(wifiInfo, 44))


def vxExtraWifiGetInfo(wifiInfo: Buffer) -> int:
    """The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them with up
    to 44 of the answer.
    """
    return number("vxExtraWifiGetInfo", ctypes.c_uint32, ctypes.c_void_p)(writable(wifiInfo, 44))


def vxExtraWifiReset() -> int:
    """The Wi-Fi settings, 44 bytes. vxExtraWifiGetInfo sends the 44 bytes that it is given and overwrites them with up
    to 44 of the answer.
    """
    return number("vxExtraWifiReset", ctypes.c_uint32)()


def vxFormatDrive(drive: Union[bytes, int]) -> int:
    """Formats a drive, by its letter."""
    return number("vxFormatDrive", ctypes.c_uint32, ctypes.c_char)(drive)


def vxGetDriveInfo(
    drive: int, first: Optional[ctypes.c_uint32], second: Optional[ctypes.c_uint32], extra: Optional[Buffer]
) -> int:
    """What a drive holds: two numbers and 12 bytes that only the sign interprets. A null output is left out."""
    return number(
        "vxGetDriveInfo", ctypes.c_uint32, _uint8, ctypes.POINTER(ctypes.c_uint32), ctypes.POINTER(ctypes.c_uint32),
        ctypes.c_void_p
    )(drive, first, second, writable(extra, 12))


def vxCreateDir(path: bytes) -> int:
    """Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most."""
    return number("vxCreateDir", ctypes.c_uint32, SignText)(path)


def vxRename(from_: bytes, to: bytes) -> int:
    """Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most."""
    return number("vxRename", ctypes.c_uint32, SignText, SignText)(from_, to)


def vxMove(from_: bytes, to: bytes) -> int:
    """Makes a folder; renames and moves a file. Both paths of the latter two together are 254 bytes at most."""
    return number("vxMove", ctypes.c_uint32, SignText, SignText)(from_, to)


def vxDelete(path: bytes) -> int:
    """Deletes a file on the sign."""
    return number("vxDelete", ctypes.c_uint32, SignText)(path)


def vxPLDeleteByIndex(index: int) -> int:
    """Deletes the play list "c:\\playlist\\sequent<index>.sys"."""
    return number("vxPLDeleteByIndex", ctypes.c_uint32, _uint8)(index)


def vxDelTextFiles(selector: int) -> int:
    """Delete the content files of one kind; which of them is the sign's selector."""
    return number("vxDelTextFiles", ctypes.c_uint32, _uint8)(selector)


def vxDelStringFiles(selector: int) -> int:
    """Delete the content files of one kind; which of them is the sign's selector."""
    return number("vxDelStringFiles", ctypes.c_uint32, _uint8)(selector)


def vxDelPictureFiles(selector: int) -> int:
    """Delete the content files of one kind; which of them is the sign's selector."""
    return number("vxDelPictureFiles", ctypes.c_uint32, _uint8)(selector)


def vxDelArrpicFiles(selector: int) -> int:
    """Delete the content files of one kind; which of them is the sign's selector."""
    return number("vxDelArrpicFiles", ctypes.c_uint32, _uint8)(selector)


def vxClearAllPlayFiles(mode: int, out: Optional[ctypes.c_uint16]) -> int:
    """Deletes all that the sign plays. With mode 1 out is required and gets a number; with any other it is not used."""
    return number("vxClearAllPlayFiles", ctypes.c_uint32, _uint8, ctypes.POINTER(ctypes.c_uint16))(mode, out)


def vxIsFileExist(path: bytes) -> int:
    """0 when the file is there."""
    return number("vxIsFileExist", ctypes.c_uint32, SignText)(path)


def vxGetDirFile(path: bytes, total: ctypes.c_uint32, entries: Buffer, maxEntries: int) -> int:
    """The entries of a folder: total gets their number, entries up to maxEntries records of 32 bytes as the sign made
    them. The second form asks for count entries from start on; of its path 252 bytes go out.
    """
    return number(
        "vxGetDirFile", ctypes.c_uint32, SignText, ctypes.POINTER(ctypes.c_uint32), ctypes.c_void_p, _uint32
    )(path, total, writable(entries, maxEntries * 32), maxEntries)


def vxGetDirFileEx(
    path: bytes, start: int, count: int, total: ctypes.c_uint32, entries: Buffer, maxEntries: int
) -> int:
    """The entries of a folder: total gets their number, entries up to maxEntries records of 32 bytes as the sign made
    them. The second form asks for count entries from start on; of its path 252 bytes go out.
    """
    return number(
        "vxGetDirFileEx", ctypes.c_uint32, SignText, _uint16, _uint16, ctypes.POINTER(ctypes.c_uint32),
        ctypes.c_void_p, _uint32
    )(path, start, count, total, writable(entries, maxEntries * 32), maxEntries)


def vxLstFolder(localFile: PathText, signPath: bytes) -> int:
    """Writes the entries of a folder into a local file: "FL", their number (16 bits), the file's size and 0 (32 bits
    each), then the entries. A folder of more than 20 entries lists the first 20 twice, and its last entries are
    missing. The header is written in any case. Returns VX_OPEN_FILE when the local file cannot be made, VX_CALL when
    it cannot be written.
    """
    return number("vxLstFolder", ctypes.c_uint32, Path, SignText)(localFile, signPath)


def vxGetDirLongFileEx(path: bytes, localFile: PathText) -> int:
    """Reads the listing of a folder with long names, as the sign makes it, into a local file; results of
    vxReadSpecPathFile. It is a second connection to the sign, beside the first.
    """
    return number("vxGetDirLongFileEx", ctypes.c_uint32, SignText, Path)(path, localFile)


def vxLstLongFolderCB(signPath: bytes, callback: Any, user: Optional[int]) -> int:
    """Calls callback for each entry of a long listing. Returns what the last call gave, whatever came before it; the
    result of vxGetDirLongFileEx when that fails, VX_OPEN_FILE when the temporary file cannot be read, VX_FILE_FORMAT
    when it is no listing.
    """
    return number("vxLstLongFolderCB", ctypes.c_uint32, SignText, vxOnFolderEntry, ctypes.c_void_p)(signPath, callback, user)


def vxGetPCTempFilename(out: Optional[Buffer], outLength: int, extension: PathText) -> int:
    """A name for a temporary file: folder, process id, a time stamp that does not repeat in this process, '.' and the
    extension. The folder is that of onTempPath if set, else the system's. Cut to outLength, always terminated.
    Returns 0.
    """
    return number("vxGetPCTempFilename", ctypes.c_uint32, ctypes.c_void_p, _uint32, Path)(writable(out, outLength), outLength, extension)


def vxGetShortFileName(path: PathText, out: Optional[Buffer], outLength: int) -> int:
    """The short (8.3) name of an existing file, without its folder. out, if not null, gets at most outLength bytes of
    it, without terminator. Returns the length of the short name, 0 for a file that is not there.
    """
    return number("vxGetShortFileName", ctypes.c_uint32, Path, ctypes.c_void_p, _uint32)(path, writable(out, outLength), outLength)


def vxSleep(ms: int) -> None:
    """Waits ms milliseconds."""
    nothing("vxSleep", None, _uint32)(ms)


def vxGetDOSTime(date: ctypes.c_uint16, time: ctypes.c_uint16) -> None:
    """The local time as DOS date (year - 1980 in bits 9-15, month 5-8, day 0-4) and DOS time (hour 11-15, minute 5-10,
    seconds / 2 in 0-4). Nothing when either is null, or for a year that has no place in it.
    """
    nothing("vxGetDOSTime", None, ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint16))(date, time)


def vxGetDateTime(out: Optional[Buffer]) -> None:
    """The local time as 8 bytes: year (little-endian 16 bits), month, day, hour, minute, second, day of week (0
    Sunday).
    """
    nothing("vxGetDateTime", None, ctypes.c_void_p)(writable(out, 8))


def vxTM_DecodeDosTime(dosDateTime: int, out: Optional[Buffer], outLength: int) -> int:
    """A DOS date (low 16 bits) and time (high 16 bits) as text "2020-05-13 10:20:30". Returns 0."""
    return number("vxTM_DecodeDosTime", ctypes.c_uint32, _uint32, ctypes.c_void_p, _uint8)(dosDateTime, writable(out, outLength), outLength)


def vxEnumSerial(out: Buffer, outLength: int) -> int:
    """The names of the serial ports of this PC with '|' between them. out is cleared first; a list that fills it has no
    terminator. Returns 0, VX_ARGUMENTS for a null out.
    """
    return number("vxEnumSerial", ctypes.c_uint32, ctypes.c_void_p, _uint32)(writable(out, outLength), outLength)


def vxPrintBuf(out: Buffer, outLength: int, format: Union[str, bytes], *more: Any) -> int:
    """printf into out, cut to outLength, always terminated. Returns 0."""
    return number("vxPrintBuf", ctypes.c_uint32, ctypes.c_void_p, _uint32, Ascii)(writable(out, outLength), outLength, format, *more)


def vxFOpen(path: PathText, mode: Union[str, bytes]) -> Optional[int]:
    """fopen, for this process alone; null when it fails, and for a folder. Close the stream with fclose."""
    return pointer("vxFOpen", ctypes.c_void_p, Path, Ascii)(path, mode)


def vxFSDelete(path: PathText) -> int:
    """Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the file
    copied. failIfExists not 0 leaves an existing target alone.
    """
    return number("vxFSDelete", ctypes.c_uint32, Path)(path)


def vxOSCreateDir(path: PathText) -> int:
    """Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the file
    copied. failIfExists not 0 leaves an existing target alone.
    """
    return number("vxOSCreateDir", ctypes.c_uint32, Path)(path)


def vxOSCopyFile(from_: PathText, to: PathText, failIfExists: int) -> int:
    """Not 0 when the file was deleted (a folder is not), the folder made (one that is there already is not), the file
    copied. failIfExists not 0 leaves an existing target alone.
    """
    return number("vxOSCopyFile", ctypes.c_uint32, Path, Path, _uint8)(from_, to, failIfExists)


def vxOSGetFileSize(path: PathText) -> int:
    """The size of a file in bytes, 0 for one that is not there, cannot be read or has 4 GB and more."""
    return number("vxOSGetFileSize", ctypes.c_uint32, Path)(path)


def vxStr_splitpath(
    path: PathText, drive: Optional[Buffer], driveSize: int, folder: Optional[Buffer], folderSize: int, name:
    Optional[Buffer], nameSize: int, extension: Optional[Buffer], extensionSize: int
) -> int:
    """Takes a path apart: drive ("C:"), folder with its last separator, name, extension with its dot. '/' and '\\' both
    separate. A null buffer with size 0 leaves its part out. Returns 0, 22 for a null path or a buffer and size that
    do not go together, 34 when a part does not fit; on failure all buffers are empty texts.
    """
    return number(
        "vxStr_splitpath", ctypes.c_int, Path, ctypes.c_void_p, _uint8, ctypes.c_void_p, _uint8, ctypes.c_void_p,
        _uint8, ctypes.c_void_p, _uint8
    )(
        path, writable(drive, driveSize), driveSize, writable(folder, folderSize), folderSize, writable(name,
        nameSize), nameSize, writable(extension, extensionSize), extensionSize
    )


def vxSysUpTimeMS() -> int:
    """Milliseconds since the system started, modulo 2^32; seconds since this function was first called."""
    return number("vxSysUpTimeMS", ctypes.c_uint32)()


def vxSystemUpTimeSec() -> int:
    """Milliseconds since the system started, modulo 2^32; seconds since this function was first called."""
    return number("vxSystemUpTimeSec", ctypes.c_uint32)()


def vxGetINIWithString(
    section: Union[str, bytes], key: Union[str, bytes], defaultValue: Union[str, bytes], iniPath: PathText, out:
    Optional[Buffer]
) -> int:
    """A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it, is 63
    characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the value is
    none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing, the file
    included, and leaves the rest of the file as it was. The new file is written beside the old one and takes its
    place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also when the file
    could not be written.
    """
    return number("vxGetINIWithString", ctypes.c_uint32, Ascii, Ascii, Ascii, Path, ctypes.c_void_p)(section, key, defaultValue, iniPath, writable(out, 63))


def vxGetINIWithInt(
    section: Union[str, bytes], key: Union[str, bytes], defaultValue: int, iniPath: PathText, out:
    Optional[ctypes.c_uint32]
) -> int:
    """A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it, is 63
    characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the value is
    none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing, the file
    included, and leaves the rest of the file as it was. The new file is written beside the old one and takes its
    place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also when the file
    could not be written.
    """
    return number("vxGetINIWithInt", ctypes.c_uint32, Ascii, Ascii, _uint32, Path, ctypes.POINTER(ctypes.c_uint32))(section, key, defaultValue, iniPath, out)


def vxSetINIWithString(
    section: Union[str, bytes], key: Union[str, bytes], value: Union[str, bytes], iniPath: PathText
) -> int:
    """A value of an INI file. Sections and keys match without regard to case. A text loses the quotes around it, is 63
    characters at most and gets no terminator: clear out before. A number is decimal or 0x, and 0 when the value is
    none. A value that is missing, or whose file is, gives defaultValue. Setting makes what is missing, the file
    included, and leaves the rest of the file as it was. The new file is written beside the old one and takes its
    place when it is whole, so that a full disk or a power cut leaves the old one. All return 0, also when the file
    could not be written.
    """
    return number("vxSetINIWithString", ctypes.c_uint32, Ascii, Ascii, Ascii, Path)(section, key, value, iniPath)


def vxReadFileLine(stream: int, buffer: Buffer, size: int) -> int:
    """Reads up to size bytes and cuts them behind the first line feed; the rest of buffer is cleared, and the stream
    goes on one byte behind the line feed's successor, whatever that byte was. Without a line feed the stream goes on
    behind what was read. Returns the bytes of the line, 0 at the end or for a null or zero argument.
    """
    return number("vxReadFileLine", ctypes.c_uint32, ctypes.c_void_p, ctypes.c_void_p, _uint32)(stream, writable(buffer, size), size)


def vxMakeSignPath(
    localPath: PathText, out: Buffer, outLength: int, drive: int, typeLetter: Optional[ctypes.c_uint8], shortName:
    Optional[Buffer]
) -> int:
    """The path that a local file gets on the sign: "<drive>:\\<type letter>\\<short name>". The type letter follows
    from the file's first bytes (P picture, T text, A animation, Q, F other). shortName gets 12 bytes, without
    terminator when full. Returns 0, VX_ARGUMENTS unless localPath and out are set and outLength is 20 at least,
    VX_OPEN_FILE when the file cannot be opened.
    """
    return number(
        "vxMakeSignPath", ctypes.c_uint32, Path, ctypes.c_void_p, _uint32, _uint8, ctypes.POINTER(ctypes.c_uint8),
        ctypes.c_void_p
    )(localPath, writable(out, outLength), outLength, drive, typeLetter, writable(shortName, 12))


def vxReadPlayLogExt(reserved: int, user: int, mode: int, callback: Any) -> int:
    """The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared
    on the sign, EventLog excepted. These readers take the first 8 bytes of a page, and so does every application
    that relies on them: a row whose text is longer does not reach the callback, and the table is cleared all the
    same. An application that wants the rows asks vxReadDB itself, with room for them ("select ... limit 10 offset
    0"), and clears the table when it is done. What the callback returns is not looked at. Results: that of the query
    for the number of rows when it fails, with nothing read and nothing cleared; else that of the last query for a
    page.
    """
    return number("vxReadPlayLogExt", ctypes.c_uint32, _uint64, _uint32, _int, vxOnPlayLog)(reserved, user, mode, callback)


def vxReadSignLog(reserved: int, user: int, mode: int, callback: Any) -> int:
    """The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared
    on the sign, EventLog excepted. These readers take the first 8 bytes of a page, and so does every application
    that relies on them: a row whose text is longer does not reach the callback, and the table is cleared all the
    same. An application that wants the rows asks vxReadDB itself, with room for them ("select ... limit 10 offset
    0"), and clears the table when it is done. What the callback returns is not looked at. Results: that of the query
    for the number of rows when it fails, with nothing read and nothing cleared; else that of the last query for a
    page.
    """
    return number("vxReadSignLog", ctypes.c_uint32, _uint64, _uint32, _int, vxOnSignLog)(reserved, user, mode, callback)


def vxReadTempLog(reserved: int, user: int, mode: int, callback: Any) -> int:
    """The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared
    on the sign, EventLog excepted. These readers take the first 8 bytes of a page, and so does every application
    that relies on them: a row whose text is longer does not reach the callback, and the table is cleared all the
    same. An application that wants the rows asks vxReadDB itself, with room for them ("select ... limit 10 offset
    0"), and clears the table when it is done. What the callback returns is not looked at. Results: that of the query
    for the number of rows when it fails, with nothing read and nothing cleared; else that of the last query for a
    page.
    """
    return number("vxReadTempLog", ctypes.c_uint32, _uint64, _uint32, _int, vxOnTempLog)(reserved, user, mode, callback)


def vxReadTileInfo(reserved: int, user: int, mode: int, callback: Any) -> int:
    """The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared
    on the sign, EventLog excepted. These readers take the first 8 bytes of a page, and so does every application
    that relies on them: a row whose text is longer does not reach the callback, and the table is cleared all the
    same. An application that wants the rows asks vxReadDB itself, with room for them ("select ... limit 10 offset
    0"), and clears the table when it is done. What the callback returns is not looked at. Results: that of the query
    for the number of rows when it fails, with nothing read and nothing cleared; else that of the last query for a
    page.
    """
    return number("vxReadTileInfo", ctypes.c_uint32, _uint64, _uint32, _int, vxOnTileInfo)(reserved, user, mode, callback)


def vxReadEventLog(reserved: int, user: int, mode: int, callback: Any) -> int:
    """The tables PlayLog, SysLog, TempLog, TileInfo and EventLog, each read page by page with vxReadDB and then cleared
    on the sign, EventLog excepted. These readers take the first 8 bytes of a page, and so does every application
    that relies on them: a row whose text is longer does not reach the callback, and the table is cleared all the
    same. An application that wants the rows asks vxReadDB itself, with room for them ("select ... limit 10 offset
    0"), and clears the table when it is done. What the callback returns is not looked at. Results: that of the query
    for the number of rows when it fails, with nothing read and nothing cleared; else that of the last query for a
    page.
    """
    return number("vxReadEventLog", ctypes.c_uint32, _uint64, _uint32, _int, vxOnEventLog)(reserved, user, mode, callback)


def vxReadRadarLog(localFolder: PathText, user: int, reserved: int, callback: Any) -> int:
    """The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails;
    VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log. vxReadRadarLog
    "D:\\RADARLog.log" as "RADAR.LOG"; stays on the sign vxReadNewRadarLog "E:\\RADAR.log" as "RADAR.LOG"; deleted on
    the sign vxReadTJRadarLog vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0
    and 1 are both 0 are passed over vxReadBatInfoLog the battery file of that kind as "DBATINFO.LOG" or
    "BATINFO.LOG"; stays on the sign vxReadBatInfoLogII the same; deleted on the sign
    """
    return number("vxReadRadarLog", ctypes.c_uint32, Path, _uint32, _uint64, vxOnRadarLog)(localFolder, user, reserved, callback)


def vxReadNewRadarLog(localFolder: PathText, user: int, reserved: int, callback: Any) -> int:
    """The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails;
    VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log. vxReadRadarLog
    "D:\\RADARLog.log" as "RADAR.LOG"; stays on the sign vxReadNewRadarLog "E:\\RADAR.log" as "RADAR.LOG"; deleted on
    the sign vxReadTJRadarLog vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0
    and 1 are both 0 are passed over vxReadBatInfoLog the battery file of that kind as "DBATINFO.LOG" or
    "BATINFO.LOG"; stays on the sign vxReadBatInfoLogII the same; deleted on the sign
    """
    return number("vxReadNewRadarLog", ctypes.c_uint32, Path, _uint32, _uint64, vxOnRadarLog)(localFolder, user, reserved, callback)


def vxReadTJRadarLog(localFolder: PathText, user: int, reserved: int, callback: Any) -> int:
    """The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails;
    VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log. vxReadRadarLog
    "D:\\RADARLog.log" as "RADAR.LOG"; stays on the sign vxReadNewRadarLog "E:\\RADAR.log" as "RADAR.LOG"; deleted on
    the sign vxReadTJRadarLog vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0
    and 1 are both 0 are passed over vxReadBatInfoLog the battery file of that kind as "DBATINFO.LOG" or
    "BATINFO.LOG"; stays on the sign vxReadBatInfoLogII the same; deleted on the sign
    """
    return number("vxReadTJRadarLog", ctypes.c_uint32, Path, _uint32, _uint64, vxOnTJRadarLog)(localFolder, user, reserved, callback)


def vxReadBatInfoLog(localFolder: PathText, user: int, reserved: int, kind: int, callback: Any) -> int:
    """The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails;
    VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log. vxReadRadarLog
    "D:\\RADARLog.log" as "RADAR.LOG"; stays on the sign vxReadNewRadarLog "E:\\RADAR.log" as "RADAR.LOG"; deleted on
    the sign vxReadTJRadarLog vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0
    and 1 are both 0 are passed over vxReadBatInfoLog the battery file of that kind as "DBATINFO.LOG" or
    "BATINFO.LOG"; stays on the sign vxReadBatInfoLogII the same; deleted on the sign
    """
    return number("vxReadBatInfoLog", ctypes.c_uint32, Path, _uint32, _uint64, _int8, vxOnBatInfoLog)(localFolder, user, reserved, kind, callback)


def vxReadBatInfoLogII(localFolder: PathText, user: int, reserved: int, kind: int, callback: Any) -> int:
    """The log files, fetched into localFolder (which ends in a separator), where they stay. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails;
    VX_OPEN_FILE when the local file cannot be opened; 0, also for a file without the marks of a log. vxReadRadarLog
    "D:\\RADARLog.log" as "RADAR.LOG"; stays on the sign vxReadNewRadarLog "E:\\RADAR.log" as "RADAR.LOG"; deleted on
    the sign vxReadTJRadarLog vxReadTJRadarLog2File into "TJRADAR.LOG", then vxClearTJRadarLog; records whose bytes 0
    and 1 are both 0 are passed over vxReadBatInfoLog the battery file of that kind as "DBATINFO.LOG" or
    "BATINFO.LOG"; stays on the sign vxReadBatInfoLogII the same; deleted on the sign
    """
    return number("vxReadBatInfoLogII", ctypes.c_uint32, Path, _uint32, _uint64, _int8, vxOnBatInfoLog)(localFolder, user, reserved, kind, callback)


def vxExecFileCMD(localFile: PathText) -> int:
    """Sends the files that a local batch file names, one after the other, with vxWriteSpecFile. The batch begins with
    116 bytes ("MC", 2 bytes, then twice 1 in 32 bits); each 512 bytes behind them are a local path and a path on the
    sign, of 256 bytes each. Returns the first failure; VX_OPEN_FILE when the batch cannot be opened, VX_FILE_FORMAT
    when it does not begin like one.
    """
    return number("vxExecFileCMD", ctypes.c_uint32, Path)(localFile)


def vxLogin(user: bytes, password: bytes) -> int:
    """The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The sign
    refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
    """
    return number("vxLogin", ctypes.c_uint32, SignText, SignText)(user, password)


def vxLogout() -> int:
    """The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The sign
    refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
    """
    return number("vxLogout", ctypes.c_uint32)()


def vxChangePSW(user: bytes, oldPassword: bytes, newPassword: bytes) -> int:
    """The first 13 characters of a user name and the first 6 of a password count; the rest is cut silently. The sign
    refuses with VX_WRONG_PASSWORD, VX_WRONG_USER, VX_WRONG_OLD_PASSWORD or VX_NO_PERMISSION.
    """
    return number("vxChangePSW", ctypes.c_uint32, SignText, SignText, SignText)(user, oldPassword, newPassword)


def vxGetAPIServerTable(total: ctypes.c_uint32, entries: Buffer, maxEntries: int) -> int:
    """The servers that the sign knows: total gets their number, entries up to maxEntries records of 68 bytes as the
    sign made them.
    """
    return number("vxGetAPIServerTable", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint32), ctypes.c_void_p, _uint32)(total, writable(entries, maxEntries * 68), maxEntries)


def vxMB_LCGet(device: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_LCGet", ctypes.c_uint32, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, registerNumber, value)


def vxMB_LCSet(device: int, registerNumber: int, value: int) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_LCSet", ctypes.c_uint32, _uint8, _uint16, _uint16)(device, registerNumber, value)


def vxMB_TLSGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_TLSGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_TLSSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_TLSSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_ALCSGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_ALCSGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_ALCSSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_ALCSSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_MLCSGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_MLCSGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_MLCSSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reads and writes a register of a device of the class in the name."""
    return number("vxMB_MLCSSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_VSLSGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_VSLSGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_VSLSSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_VSLSSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_TORGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_TORGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_TORSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_TORSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_VMSGet(device: int, section: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_VMSGet", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, section, registerNumber, value)


def vxMB_VMSSet(device: int, section: int, registerNumber: int, value: int) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_VMSSet", ctypes.c_uint32, _uint8, _uint8, _uint16, _uint16)(device, section, registerNumber, value)


def vxMB_PVMSGet(device: int, registerNumber: int, value: Optional[ctypes.c_uint16]) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_PVMSGet", ctypes.c_uint32, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint16))(device, registerNumber, value)


def vxMB_PVMSSet(device: int, registerNumber: int, value: int) -> int:
    """Reading VSLS is reading MLCS."""
    return number("vxMB_PVMSSet", ctypes.c_uint32, _uint8, _uint16, _uint16)(device, registerNumber, value)


def vxRWFile(local: PathText, path: bytes, mode: int) -> int:
    """Moves a file. The local file's name, in upper or lower case, decides how: MONITOR.GIF vxCurrentMsg2Gif(path,
    local), in both modes PLAYFILE.PLS, a package of a play list and its files: reading does nothing and returns 0,
    writing unpacks it PLAYFILE.PLM beside itself, sends the files to drive D and the list made of them, which plays
    at once. The first failure ends it. progressTotal is the number of all uploads, progressPos of those done. What
    is no package sends a SEQUENT.SYS that lies beside it. TRAFFICLIGHT.SYS the sign's beacon as a file: "LT", number
    of records (16 bits: 1, or 0 when the beacon could not be read), the file's size and 0 (32 bits each), then the 8
    bytes of vxGetBeacon. Reading calls onProgress once, with 90 percent. A file without "LT" gives VX_FILE_FORMAT.
    CONFIG.SYS the sign's system file of that name any other vxReadSpecPathFile(path, local) or vxWriteSpecFile(path,
    local) path counts for the first and the last of these alone. Returns VX_NOT_INITIALISED for a null local or
    another mode, VX_OPEN_FILE when the local file cannot be opened or made, else what the commands used give.
    """
    return number("vxRWFile", ctypes.c_uint32, Path, SignText, _uint32)(local, path, mode)


def vxCurrentMsg2Gif(tempFolder: PathText, gifPath: PathText) -> int:
    """Has onMessageToGif (vxApiConfig), with the settings 20 and 1000, turn the message that the sign shows now into
    the file gifPath. The message file is looked for in tempFolder, under the name that the sign tells, less any
    folder; it is "__BLANK.VXB" when nothing plays, and the result is then VX_NOTHING_PLAYS. The folder and the name
    are joined with a backslash. Returns what vxGetPlayingFileName gives, whatever the converter does.
    """
    return number("vxCurrentMsg2Gif", ctypes.c_uint32, Path, Path)(tempFolder, gifPath)


def vxOndraGetResult(taskId: int, buffer: Buffer, bufferSize: int) -> int:
    """Asks for a task once. buffer gets as much of the answer as bufferSize takes."""
    return number("vxOndraGetResult", ctypes.c_uint32, _uint32, ctypes.c_void_p, _uint32)(taskId, writable(buffer, bufferSize), bufferSize)


def vxOndraTileTest(testCode: int, port: int, tile: int) -> int:
    """Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The command
    has 300000 ms, or timeoutMs.
    """
    return number("vxOndraTileTest", ctypes.c_uint32, _uint8, _uint8, _uint16)(testCode, port, tile)


def vxOndraTileCMD(command: int, port: int, tile: int, data: Buffer, dataLength: int) -> int:
    """Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The command
    has 300000 ms, or timeoutMs.
    """
    return number("vxOndraTileCMD", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.c_void_p, _uint32)(command, port, tile, room(data, dataLength), dataLength)


def vxOndraTileCMDTimeout(
    command: int, port: int, tile: int, data: Buffer, dataLength: int, timeoutMs: int
) -> int:
    """Test a tile and send it a command with dataLength bytes of data; testCode and command are the tile's. The command
    has 300000 ms, or timeoutMs.
    """
    return number(
        "vxOndraTileCMDTimeout", ctypes.c_uint32, _uint8, _uint8, _uint16, ctypes.c_void_p, _uint32, _uint32
    )(command, port, tile, room(data, dataLength), dataLength, timeoutMs)


def vxOndraLDUCMD(command: int, value: int) -> int:
    """Commands without a task: one of the control board, and the mode in which brightness is synchronised."""
    return number("vxOndraLDUCMD", ctypes.c_uint32, _uint8, _uint8)(command, value)


def vxOndraSyncBriMode(mode: int) -> int:
    """Commands without a task: one of the control board, and the mode in which brightness is synchronised."""
    return number("vxOndraSyncBriMode", ctypes.c_uint32, _uint8)(mode)


def vxOndraPicCalShow(a: int, b: int, c: int, d: int) -> int:
    """Shows a calibration picture: four numbers of the tile's."""
    return number("vxOndraPicCalShow", ctypes.c_uint32, _uint16, _uint16, _uint16, _uint16)(a, b, c, d)


def vxOndraReadTileFile(
    localPath: PathText, fileType: int, port: int, tile: int, skipFetch: int, detail: Optional[ctypes.c_uint32]
) -> int:
    """Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that lies on
    the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and port 255, and
    for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The first form has
    300000 ms, the second timeoutMs, the third no limit.
    """
    return number(
        "vxOndraReadTileFile", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _int32,
        ctypes.POINTER(ctypes.c_uint32)
    )(localPath, fileType, port, tile, skipFetch, detail)


def vxOndraReadTileFileTimeout(
    localPath: PathText, fileType: int, port: int, tile: int, skipFetch: int, detail: Optional[ctypes.c_uint32],
    timeoutMs: int
) -> int:
    """Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that lies on
    the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and port 255, and
    for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The first form has
    300000 ms, the second timeoutMs, the third no limit.
    """
    return number(
        "vxOndraReadTileFileTimeout", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _int32,
        ctypes.POINTER(ctypes.c_uint32), _uint32
    )(localPath, fileType, port, tile, skipFetch, detail, timeoutMs)


def vxOndraReadTileFileExt(
    localPath: PathText, fileType: int, port: int, tile: int, extra: int, skipFetch: int, detail:
    Optional[ctypes.c_uint32]
) -> int:
    """Read a tile's file into a local file; results of vxReadSpecPathFileEx. With skipFetch not 0 the file that lies on
    the sign's disk is taken, without the tile: detail stays as it was. VX_ARGUMENTS for tile 65535 and port 255, and
    for a fileType above 10 but in the third form, whose table is longer; extra is the tile's. The first form has
    300000 ms, the second timeoutMs, the third no limit.
    """
    return number(
        "vxOndraReadTileFileExt", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _uint8, _uint32,
        ctypes.POINTER(ctypes.c_uint32)
    )(localPath, fileType, port, tile, extra, skipFetch, detail)


def vxOndraWriteTileFile(
    localPath: PathText, fileType: int, port: int, tile: int, detail: Optional[ctypes.c_uint32]
) -> int:
    """Write a local file to a tile, or to all of a port; results of vxWriteSpecFileEx for the way to the sign's disk.
    VX_ARGUMENTS for port 255, and for a fileType above 10 but in the second form.
    """
    return number(
        "vxOndraWriteTileFile", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, ctypes.POINTER(ctypes.c_uint32)
    )(localPath, fileType, port, tile, detail)


def vxOndraWriteTileFileExt(
    localPath: PathText, fileType: int, port: int, tile: int, extra: int, detail: Optional[ctypes.c_uint32]
) -> int:
    """Write a local file to a tile, or to all of a port; results of vxWriteSpecFileEx for the way to the sign's disk.
    VX_ARGUMENTS for port 255, and for a fileType above 10 but in the second form.
    """
    return number(
        "vxOndraWriteTileFileExt", ctypes.c_uint32, Path, _uint8, _uint8, _uint16, _uint8,
        ctypes.POINTER(ctypes.c_uint32)
    )(localPath, fileType, port, tile, extra, detail)


def vxOndraWritePxlCal(
    localPath: PathText, port: int, tile: int, mode: int, detail: Optional[ctypes.c_uint32], calParams:
    Optional[Buffer]
) -> int:
    """Write a calibration file to a tile. calParams: VX_CAL_PARAMS bytes for the tile, or null."""
    return number(
        "vxOndraWritePxlCal", ctypes.c_uint32, Path, _uint8, _uint16, _uint8, ctypes.POINTER(ctypes.c_uint32),
        ctypes.c_void_p
    )(localPath, port, tile, mode, detail, room(calParams, VX_CAL_PARAMS))


def vxOndraWritePxlCalBurn(
    localPath: PathText, port: int, tile: int, mode: int, reserved: int, calParams: Optional[Buffer], taskId:
    Optional[ctypes.c_uint32]
) -> int:
    """The same without waiting for the end: 0 as soon as the task's progress is 10 or more, after which
    vxOndraGetResult follows it. taskId becomes 0 at once and the task when it has started and the answer names one,
    whatever the result; null leaves it out. VX_COMMUNICATION when neither progress nor state changes for ten
    minutes. onProgress is not called; reserved is not used.
    """
    return number(
        "vxOndraWritePxlCalBurn", ctypes.c_uint32, Path, _uint8, _uint16, _uint8, _uint64, ctypes.c_void_p,
        ctypes.POINTER(ctypes.c_uint32)
    )(localPath, port, tile, mode, reserved, room(calParams, VX_CAL_PARAMS), taskId)


def vxBeginPixCheck() -> int:
    """Starts the sign's check, and tells how far it is, in percent."""
    return number("vxBeginPixCheck", ctypes.c_uint32)()


def vxPixProgress(percent: ctypes.c_uint8) -> int:
    """Starts the sign's check, and tells how far it is, in percent."""
    return number("vxPixProgress", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8))(percent)


def vxReadPixResult(local: PathText) -> int:
    """Fetch the sign's results, "D:\\PXL.CSV" and "D:\\SIGNAL.CSV", into a local file."""
    return number("vxReadPixResult", ctypes.c_uint32, Path)(local)


def vxReadSignalResult(local: PathText) -> int:
    """Fetch the sign's results, "D:\\PXL.CSV" and "D:\\SIGNAL.CSV", into a local file."""
    return number("vxReadSignalResult", ctypes.c_uint32, Path)(local)


def vxPxlChk(pxlLocal: PathText, signalLocal: PathText) -> int:
    """A whole check: starts it, waits for its end with a poll each second (onProgress is called with each percentage
    below 100), and fetches both results. progressTotal becomes 4, progressPos the step. It takes as long as the sign
    takes; abortFlag ends it. Returns what starting or the last poll gives when it fails, else 0: a result that could
    not be fetched shows in the local files.
    """
    return number("vxPxlChk", ctypes.c_uint32, Path, Path)(pxlLocal, signalLocal)


def vxReadPixelInfo(folder: PathText, user: int, source: int, callback: Any) -> int:
    """The findings from one of the sign's sources, a row each. folder ends in a separator and gets the local files. the
    CSV files runs vxPxlChk into "PXL.CSV" and "SIGNAL.CSV"; a row for each line "number,x,y,...,"text","time"" of
    the first, then for each "number,x,y,"text","time"" of the second; both deleted on the sign the text file
    "C:\\PIXEL.SYS", deleted on the sign: a row for each line that tells of a port or a board, with the local time of
    the PC; one that all is well, or that too much is bad, is the last the database the table PixelStatus, which is
    then cleared; rows of more than 8 bytes do not arrive (see log.h) Returns 0 with no rows when the sign has no
    such file; what the check, the transfer or the query gives when it fails; VX_OPEN_FILE when a local file cannot
    be opened.
    """
    return number("vxReadPixelInfo", ctypes.c_uint32, Path, _uint32, _uint32, vxOnPixelInfo)(folder, user, source, callback)


def vxReadPixelErrorReport(callback: Any) -> int:
    """The tables PixelStatus and PixelSignalErr, which stay as they are; rows of more than 8 bytes do not arrive (see
    log.h). Returns what the query for the number of rows gives when it fails; else the failure of a query for a
    page, if any.
    """
    return number("vxReadPixelErrorReport", ctypes.c_uint32, vxOnPixelError)(callback)


def vxTestPattern() -> int:
    """Reads the file "F:\\PL\\SIGNAL.CSV" of the PC as vxReadPixelInfo would, and drops what it finds. Returns 0, also
    when the file is missing.
    """
    return number("vxTestPattern", ctypes.c_uint32)()


def vxReplayList() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxReplayList", ctypes.c_uint32)()


def vxReplayCurrFile() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxReplayCurrFile", ctypes.c_uint32)()


def vxPlayPause() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxPlayPause", ctypes.c_uint32)()


def vxPlayContinue() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxPlayContinue", ctypes.c_uint32)()


def vxPlayNext() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxPlayNext", ctypes.c_uint32)()


def vxPlayPrevious() -> int:
    """The play list: from its start, the current file again, pause, continue, next and previous file."""
    return number("vxPlayPrevious", ctypes.c_uint32)()


def vxPlayForword() -> int:
    """Within the current file: forward, back, one frame on."""
    return number("vxPlayForword", ctypes.c_uint32)()


def vxPlayBack() -> int:
    """Within the current file: forward, back, one frame on."""
    return number("vxPlayBack", ctypes.c_uint32)()


def vxPlayNextFrame() -> int:
    """Within the current file: forward, back, one frame on."""
    return number("vxPlayNextFrame", ctypes.c_uint32)()


def vxPlayPriority(first: int, second: int, name: bytes) -> int:
    """Plays the file name ahead of all others; its first 12 characters count."""
    return number("vxPlayPriority", ctypes.c_uint32, _uint8, _uint8, SignText)(first, second, name)


def vxPlaySpePlaylist(index: int) -> int:
    """Plays the play list of that number, and tells which one plays."""
    return number("vxPlaySpePlaylist", ctypes.c_uint32, _uint8)(index)


def vxReadSpePlayListIndex(out: ctypes.c_uint8) -> int:
    """Plays the play list of that number, and tells which one plays."""
    return number("vxReadSpePlayListIndex", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8))(out)


def vxGetPlayingFileName(out: Buffer, outLength: int) -> int:
    """The name of the file that plays, and of the next. out is cleared and gets outLength bytes at most; a name that
    fills it has no terminator. VX_NOTHING_PLAYS when nothing plays.
    """
    return number("vxGetPlayingFileName", ctypes.c_uint32, ctypes.c_void_p, _uint32)(writable(out, outLength), outLength)


def vxGetNextPlayFileName(out: Buffer, outLength: int) -> int:
    """The name of the file that plays, and of the next. out is cleared and gets outLength bytes at most; a name that
    fills it has no terminator. VX_NOTHING_PLAYS when nothing plays.
    """
    return number("vxGetNextPlayFileName", ctypes.c_uint32, ctypes.c_void_p, _uint32)(writable(out, outLength), outLength)


def vxSoundCtrl(first: int, second: int, third: int) -> int:
    """Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer."""
    return number("vxSoundCtrl", ctypes.c_uint32, _uint8, _uint8, _uint8)(first, second, third)


def vxPlaySoundFile(value: int, name: bytes) -> int:
    """Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer."""
    return number("vxPlaySoundFile", ctypes.c_uint32, _uint64, SignText)(value, name)


def vxPlaySoundFile4j(value: ctypes.c_uint64, name: bytes) -> int:
    """Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer."""
    return number("vxPlaySoundFile4j", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint64), SignText)(value, name)


def vxAdjustVolume(volume: int) -> int:
    """Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer."""
    return number("vxAdjustVolume", ctypes.c_uint32, _uint8)(volume)


def vxReadCurVolume(out: ctypes.c_uint8) -> int:
    """Sound. Of name 247 characters at most; the second form of vxPlaySoundFile takes its value through a pointer."""
    return number("vxReadCurVolume", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8))(out)


def vxBeginTiming(first: int, second: int, third: int, fourth: int) -> int:
    """Timing runs."""
    return number("vxBeginTiming", ctypes.c_uint32, _uint8, _uint8, _uint8, _uint8)(first, second, third, fourth)


def vxStopTiming() -> int:
    """Timing runs."""
    return number("vxStopTiming", ctypes.c_uint32)()


def vxPauseTiming() -> int:
    """Timing runs."""
    return number("vxPauseTiming", ctypes.c_uint32)()


def vxContinueTiming() -> int:
    """Timing runs."""
    return number("vxContinueTiming", ctypes.c_uint32)()


def vxReadCurScreenshot(localFile: PathText) -> int:
    """Has the sign take a picture of its face and reads it, a JPEG, into a local file. The sign gets up to 10 tries,
    200 ms apart. The reading is a second connection to the sign, beside the first. Returns VX_OPEN_FILE when the
    local file cannot be made, else the result of the last try. The second name stands for old applications.
    """
    return number("vxReadCurScreenshot", ctypes.c_uint32, Path)(localFile)


def vxReadCurScreentshot(localFile: PathText) -> int:
    """Has the sign take a picture of its face and reads it, a JPEG, into a local file. The sign gets up to 10 tries,
    200 ms apart. The reading is a second connection to the sign, beside the first. Returns VX_OPEN_FILE when the
    local file cannot be made, else the result of the last try. The second name stands for old applications.
    """
    return number("vxReadCurScreentshot", ctypes.c_uint32, Path)(localFile)


def vxReadTJRadarLog2File(localFile: PathText) -> int:
    """Reads the radar log, records of 16 bytes, into a local file; 50000 records at most. onProgress is called after
    each 5 of them, with one percent for 500. VX_OPEN_FILE when the local file cannot be made. The second deletes the
    log.
    """
    return number("vxReadTJRadarLog2File", ctypes.c_uint32, Path)(localFile)


def vxClearTJRadarLog() -> int:
    """Reads the radar log, records of 16 bytes, into a local file; 50000 records at most. onProgress is called after
    each 5 of them, with one percent for 500. VX_OPEN_FILE when the local file cannot be made. The second deletes the
    log.
    """
    return number("vxClearTJRadarLog", ctypes.c_uint32)()


def vxReadDefaultScreenSet(out: Buffer) -> int:
    """The settings of the default screen, two numbers: how long the default picture shows and how long the screen is
    black. A sign that cannot be read gives two zeros and 0. Writing replaces the sign's file; it returns 1 when the
    temporary file cannot be made, else the result of sending it. Both use a second connection to the sign, beside
    the first.
    """
    return number("vxReadDefaultScreenSet", ctypes.c_uint32, ctypes.c_void_p)(writable(out, (2) * ctypes.sizeof(ctypes.c_uint16)))


def vxWriteDefaultScreenSet(in_: Buffer) -> int:
    """The settings of the default screen, two numbers: how long the default picture shows and how long the screen is
    black. A sign that cannot be read gives two zeros and 0. Writing replaces the sign's file; it returns 1 when the
    temporary file cannot be made, else the result of sending it. Both use a second connection to the sign, beside
    the first.
    """
    return number("vxWriteDefaultScreenSet", ctypes.c_uint32, ctypes.c_void_p)(room(in_, (2) * ctypes.sizeof(ctypes.c_uint16)))


def vxCorePlayProgram(text1: bytes, text2: bytes, text3: Optional[bytes], flag: int) -> int:
    """Plays a program. text3 may be null, and text4 too; the others give VX_ARGUMENTS. Both forms are one command to
    the player: the flag goes where the second form has the length of its text4.
    """
    return number("vxCorePlayProgram", ctypes.c_uint32, SignText, SignText, SignText, _uint8)(text1, text2, text3, flag)


def vxCorePlayWindowProgram(
    text1: bytes, text2: bytes, text3: Optional[bytes], text4: Optional[bytes]
) -> int:
    """Plays a program. text3 may be null, and text4 too; the others give VX_ARGUMENTS. Both forms are one command to
    the player: the flag goes where the second form has the length of its text4.
    """
    return number("vxCorePlayWindowProgram", ctypes.c_uint32, SignText, SignText, SignText, SignText)(text1, text2, text3, text4)


def vxCoreStopPlay(name: Optional[bytes]) -> int:
    """Ends the program of that name. Of the name go as many bytes as the low 8 bits of its length say: 44 of 300. A
    null names none.
    """
    return number("vxCoreStopPlay", ctypes.c_uint32, SignText)(name)


def vxCorePlayEmergencyProgram(text1: bytes, text2: bytes, text3: Optional[bytes]) -> int:
    """Plays an emergency program, with text3 as above, and ends it."""
    return number("vxCorePlayEmergencyProgram", ctypes.c_uint32, SignText, SignText, SignText)(text1, text2, text3)


def vxCoreStopEmergencyProgram() -> int:
    """Plays an emergency program, with text3 as above, and ends it."""
    return number("vxCoreStopEmergencyProgram", ctypes.c_uint32)()


def vxCoreSwitchProgram(name: bytes, mode: int) -> int:
    """Switches to a program, and the mode of switching. VX_ARGUMENTS for a mode above 2."""
    return number("vxCoreSwitchProgram", ctypes.c_uint32, SignText, _uint8)(name, mode)


def vxCoreSwitchMode(mode: int) -> int:
    """Switches to a program, and the mode of switching. VX_ARGUMENTS for a mode above 2."""
    return number("vxCoreSwitchMode", ctypes.c_uint32, _uint8)(mode)


def vxCoreWinMode(mode: int, data: Optional[Buffer], length: int) -> int:
    """The mode of the windows, with length bytes of data; none if data is null."""
    return number("vxCoreWinMode", ctypes.c_uint32, _uint8, ctypes.c_void_p, _uint32)(mode, room(data, length), length)


def vxCoreProjectInfo(name: Optional[bytes], value1: int, value2: int) -> int:
    """Tells the player about a project. name may be null, extra not."""
    return number("vxCoreProjectInfo", ctypes.c_uint32, SignText, _uint16, _uint16)(name, value1, value2)


def vxCoreProjectInfoEx(name: Optional[bytes], value1: int, value2: int, extra: ProjectExtra) -> int:
    """Tells the player about a project. name may be null, extra not."""
    return number("vxCoreProjectInfoEx", ctypes.c_uint32, SignText, _uint16, _uint16, ctypes.POINTER(ProjectExtra))(name, value1, value2, extra)


def vxCorePrjSyncProgress(out1: ctypes.c_uint8, out2: ctypes.c_uint8) -> int:
    """How far the synchronising of a project is: two numbers of the player's."""
    return number(
        "vxCorePrjSyncProgress", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8)
    )(out1, out2)


def vxCoreGetFileProperty(name: Optional[bytes], out: Buffer, outLength: int) -> int:
    """The properties of a file, whose name goes over whole and may be null; and what plays. Both write outLength bytes
    at most, as many as the player sends, and leave the rest of out as it was. VX_ARGUMENTS for an outLength of 0.
    The first counts the bytes of the reply's extended part but takes them from where the reply's payload begins.
    """
    return number("vxCoreGetFileProperty", ctypes.c_uint32, SignText, ctypes.c_void_p, _uint32)(name, writable(out, outLength), outLength)


def vxCoreGetPlayInfo(out: Buffer, outLength: int) -> int:
    """The properties of a file, whose name goes over whole and may be null; and what plays. Both write outLength bytes
    at most, as many as the player sends, and leave the rest of out as it was. VX_ARGUMENTS for an outLength of 0.
    The first counts the bytes of the reply's extended part but takes them from where the reply's payload begins.
    """
    return number("vxCoreGetPlayInfo", ctypes.c_uint32, ctypes.c_void_p, _uint32)(writable(out, outLength), outLength)


def vxPLInit(dir: PathText, fileName: PathText) -> int:
    """Binds the thread's list to <dir>/<fileName> and loads it. A file that is not there is created empty, a directory
    is not; what cannot be parsed gives an empty list and 0. Backslashes of dir become slashes. 256 when the file
    cannot be made.
    """
    return number("vxPLInit", ctypes.c_uint32, Path, Path)(dir, fileName)


def vxPLSave() -> int:
    """Writes the list to its file. 0, whatever became of the file; 1 when memory ran out. The new file is written
    beside the old one and takes its place when it is whole, so that a full disk or a power cut leaves the old one.
    Not all comes back. Of the files in a group's default child only the first does. In a group with sub-groups the
    others come back too, each in the place of one of the last sub-groups, and all of them without stay time and
    effects.
    """
    return number("vxPLSave", ctypes.c_uint32)()


def vxLoadSYSFromXML(path: Optional[PathText]) -> int:
    """Replaces the list with the XML file at path, with the bound file if path is null. 1 when it cannot be opened or
    parsed, or memory ran out; the list is empty then.
    """
    return number("vxLoadSYSFromXML", ctypes.c_uint32, Path)(path)


def vxLoadSYSFromLED(path: PathText) -> int:
    """Replaces the list with a sequence file of version 4 or 6. 0 also when the file cannot be opened or is of no such
    version: the list then stays. 1 for a null path, 0xFFFFFFFF (-1) when memory ran out.
    """
    return number("vxLoadSYSFromLED", ctypes.c_uint32, Path)(path)


def vxLoadPLSFromPC(path: PathText) -> int:
    """Replaces the list with a PC play list of version 4, 5 or 6 and copies the files that it names into the play list
    directory, which is made if it is missing; a name that would leave the directory is not copied. Results as above.
    """
    return number("vxLoadPLSFromPC", ctypes.c_uint32, Path)(path)


def vxPLAddGroup(path: bytes, index: int, name: bytes, playType: int) -> int:
    """Adds a group (path "/") or a sub-group (path "/G/") at index, or at the end. VX_FAILED_OPERATION when the name is
    taken, in the way the list looks for it, or G is unknown: a sub-group is compared with the children of the group
    before G, for the first group with the groups.
    """
    return number("vxPLAddGroup", ctypes.c_uint32, SignText, _uint16, SignText, _uint8)(path, index, name, playType)


def vxPLModifyGroup(path: bytes, name: bytes, playType: int) -> int:
    """Gives a group, with its default child, or a sub-group another name and type."""
    return number("vxPLModifyGroup", ctypes.c_uint32, SignText, SignText, _uint8)(path, name, playType)


def vxPLAddFile(path: bytes, index: int, info: VXPLAYLIST_FILE_INFO) -> int:
    """Adds a file at index; at the root always at the end. The list takes the record over and releases it with free():
    info must come from malloc() or calloc(), and belongs to the caller as long as the list has not taken it. The
    result is 0 in both cases. To see which, ask with vxPLGetFile before the call (a record that comes back means the
    name is there and the new one will be refused) and after it.
    """
    return number("vxPLAddFile", ctypes.c_uint32, SignText, _uint16, ctypes.POINTER(VXPLAYLIST_FILE_INFO))(path, index, given(info))


def vxPLModifyFile(path: bytes, info: VXPLAYLIST_FILE_INFO) -> int:
    """Copy a record over the stored one, and the stored one out. Without such a file nothing is copied."""
    return number("vxPLModifyFile", ctypes.c_uint32, SignText, ctypes.POINTER(VXPLAYLIST_FILE_INFO))(path, info)


def vxPLGetFile(path: bytes, info: VXPLAYLIST_FILE_INFO) -> int:
    """Copy a record over the stored one, and the stored one out. Without such a file nothing is copied."""
    return number("vxPLGetFile", ctypes.c_uint32, SignText, ctypes.POINTER(VXPLAYLIST_FILE_INFO))(path, info)


def vxPLMoveItem(path: bytes, index: int, direction: int) -> int:
    """Swaps an entry of a level with its neighbour."""
    return number("vxPLMoveItem", ctypes.c_uint32, SignText, _uint16, _uint16)(path, index, direction)


def vxPLDelItem(path: bytes, first: int, last: int) -> int:
    """Deletes the entries first to last of a level, both included and both cut to the last entry. A group without its
    default child takes no more files of its own.
    """
    return number("vxPLDelItem", ctypes.c_uint32, SignText, _uint16, _uint16)(path, first, last)


def vxPLGetItems(path: bytes, count: ctypes.c_uint16, items: Buffer) -> int:
    """Lists a level. At the root *count is the capacity on entry; when it is too small the result is VX_ARGUMENTS and
    items stays untouched. In groups and sub-groups the capacity is not looked at: items must have room for all.
    *count becomes the number of entries, but stays for a level that is not there.
    """
    return number("vxPLGetItems", ctypes.c_uint32, SignText, ctypes.POINTER(ctypes.c_uint16), ctypes.c_void_p)(path, count, writable(items, (held(count)) * ctypes.sizeof(VXPLAYLIST_ITEM)))


def vxPLSendToLED(withFiles: int) -> int:
    """Sends the list to the sign, where it plays at once; the second form puts it into the numbered list index. With
    withFiles the files whose codes differ from those of the sign's file list go first; a file that does not arrive
    is passed over. abortFlag ends the files, not the list. progressTotal becomes 128 and progressPos the step. The
    result is that of the list's upload.
    """
    return number("vxPLSendToLED", ctypes.c_uint32, _int8)(withFiles)


def vxPLSpeSendToLED(index: int, withFiles: int) -> int:
    """Sends the list to the sign, where it plays at once; the second form puts it into the numbered list index. With
    withFiles the files whose codes differ from those of the sign's file list go first; a file that does not arrive
    is passed over. abortFlag ends the files, not the list. progressTotal becomes 128 and progressPos the step. The
    result is that of the list's upload.
    """
    return number("vxPLSpeSendToLED", ctypes.c_uint32, _uint8, _int8)(index, withFiles)


def vxPLReadFromLED(withFiles: int) -> int:
    """Fetches the sign's list, and with withFiles the files that differ from the local ones, but none whose name would
    leave the play list directory. vxPLSave keeps it. Returns what the transfer of the list gives when it fails: the
    thread's list then stays. Otherwise 0, whatever became of the files. Progress as in sending.
    """
    return number("vxPLReadFromLED", ctypes.c_uint32, _int8)(withFiles)


def vxInitProperty() -> int:
    """Reads the default display style and "CONFIG.SYS" of the sign into the thread's record, if they are not there yet,
    and the style once more in any case. Returns 1 when the record cannot be made, VX_OPEN_FILE when the temporary
    file cannot be read, else the result of the failed read or 0.
    """
    return number("vxInitProperty", ctypes.c_uint32)()


def vxGetProperty(out: Buffer, outLength: int, propertyKind: int) -> int:
    """Copies a property (vxPropertyKind) out of the thread's record. Returns 0, also for an unknown kind, which writes
    nothing; VX_NOT_INITIALISED before a successful vxInitProperty, for a null out or an outLength of 0. A value that
    is wider than outLength is cut.
    """
    return number("vxGetProperty", ctypes.c_uint32, ctypes.c_void_p, _uint32, _int)(writable(out, outLength), outLength, propertyKind)


def vxReadCommunicationSet(out: Optional[vxCommunicationSet]) -> int:
    """Reads the communication settings from the sign. The next vxInitProperty then reads the sign afresh. Returns what
    vxInitProperty gives; a null out is left out.
    """
    return number("vxReadCommunicationSet", ctypes.c_uint32, ctypes.POINTER(vxCommunicationSet))(out)


def vxWriteCommunicationSet(in_: vxCommunicationSet) -> int:
    """Writes the communication settings into the sign's "CONFIG.SYS". An address is four numbers of 0 to 255 with a dot
    behind each of the first three; blanks ahead of a number and whatever stands behind the last one do not count. An
    empty one leaves the sign's own. The thread's record keeps the new settings even when sending them fails. Returns
    0 with nothing written for a sign whose properties cannot be read; VX_ARGUMENTS, with nothing written, for an
    address that is none; VX_OPEN_FILE when the temporary file cannot be made, VX_CALL when it cannot be written,
    else the result of sending it.
    """
    return number("vxWriteCommunicationSet", ctypes.c_uint32, ctypes.POINTER(vxCommunicationSet))(in_)


def vxShowMsg(
    text: Buffer, size: int, font: int, colour: int, mode: int, staySec: int, host: Union[str, bytes], port: int,
    toE: int, sendSequence: int
) -> int:
    """Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the limits
    of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays; when the
    sign refuses the message, vxShowMsg leaves it and the others delete it.
    """
    return number(
        "vxShowMsg", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32, _uint32, _uint32, Ascii, _uint32,
        _uint32, _int
    )(room(text, size), size, font, colour, mode, staySec, host, port, toE, sendSequence)


def vxShowMsgEx(
    text: Buffer, size: int, font: int, colour: int, mode: int, staySec: int, host: Union[str, bytes], port: int,
    toE: int, sendSequence: int, kind: int, serialName: Optional[PathText], baudRate: int, destinationAddress: int
) -> int:
    """Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the limits
    of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays; when the
    sign refuses the message, vxShowMsg leaves it and the others delete it.
    """
    return number(
        "vxShowMsgEx", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32, _uint32, _uint32, Ascii,
        _uint32, _uint32, _int, _uint32, Path, _uint32, _uint16
    )(
        room(text, size), size, font, colour, mode, staySec, host, port, toE, sendSequence, kind, serialName,
        baudRate, destinationAddress
    )


def vxShowMsgTimeout(
    text: Buffer, size: int, font: int, colour: int, mode: int, staySec: int, host: Union[str, bytes], port: int,
    toE: int, sendSequence: int, retries: int, timeoutMs: int, kind: int, serialName: Optional[PathText], baudRate:
    int, destinationAddress: int
) -> int:
    """Shows size bytes of text. Tries and time-out: 3 and 3000 ms, the caller's in vxShowMsgTimeout (within the limits
    of vxApiConfig). When the sign's properties cannot be read, the temporary file of the message stays; when the
    sign refuses the message, vxShowMsg leaves it and the others delete it.
    """
    return number(
        "vxShowMsgTimeout", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32, _uint32, _uint32, Ascii,
        _uint32, _uint32, _int, _uint8, _uint32, _uint32, Path, _uint32, _uint16
    )(
        room(text, size), size, font, colour, mode, staySec, host, port, toE, sendSequence, retries, timeoutMs,
        kind, serialName, baudRate, destinationAddress
    )


def vxShowPic(
    buf: Buffer, size: int, mode: int, staySec: int, host: Union[str, bytes], port: int, toE: int
) -> int:
    """Shows a picture: size bytes of a picture file of any type that the sign knows. 3 tries of 3000 ms."""
    return number("vxShowPic", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32, Ascii, _uint32, _uint32)(room(buf, size), size, mode, staySec, host, port, toE)


def vxShowPicEx(
    buf: Buffer, size: int, mode: int, staySec: int, host: Union[str, bytes], port: int, toE: int, kind: int,
    serialName: Optional[PathText], baudRate: int, destinationAddress: int
) -> int:
    """Shows a picture: size bytes of a picture file of any type that the sign knows. 3 tries of 3000 ms."""
    return number(
        "vxShowPicEx", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32, Ascii, _uint32, _uint32,
        _uint32, Path, _uint32, _uint16
    )(room(buf, size), size, mode, staySec, host, port, toE, kind, serialName, baudRate, destinationAddress)


def vxShowFiles(
    files: Sequence[PathText], count: int, mode: int, staySec: int, host: Union[str, bytes], port: int, toE: int
) -> int:
    """Shows count local files (128 at most) one after the other, all with the same mode and stay time, which become the
    sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on the sign, and
    what the sign plays stays as it was.
    """
    return number("vxShowFiles", ctypes.c_uint32, ctypes.c_void_p, _uint32, _int, _uint32, Ascii, _uint32, _uint32)(paths(files, count), count, mode, staySec, host, port, toE)


def vxShowFilesEx(
    files: Sequence[PathText], count: int, mode: int, staySec: int, host: Union[str, bytes], port: int, toE: int,
    kind: int, serialName: Optional[PathText], baudRate: int, destinationAddress: int
) -> int:
    """Shows count local files (128 at most) one after the other, all with the same mode and stay time, which become the
    sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on the sign, and
    what the sign plays stays as it was.
    """
    return number(
        "vxShowFilesEx", ctypes.c_uint32, ctypes.c_void_p, _uint32, _int, _uint32, Ascii, _uint32, _uint32, _uint32,
        Path, _uint32, _uint16
    )(
        paths(files, count), count, mode, staySec, host, port, toE, kind, serialName, baudRate, destinationAddress
    )


def vxShowFilesSpe(
    files: Sequence[PathText], count: int, mode: int, staySec: int, host: Union[str, bytes], port: int, toE: int,
    kind: int, serialName: Optional[PathText], baudRate: int, destinationAddress: int, what: int
) -> int:
    """Shows count local files (128 at most) one after the other, all with the same mode and stay time, which become the
    sign's defaults. 6 tries of 3000 ms. A file that fails ends the list: those ahead of it stay on the sign, and
    what the sign plays stays as it was.
    """
    return number(
        "vxShowFilesSpe", ctypes.c_uint32, ctypes.c_void_p, _uint32, _int, _uint32, Ascii, _uint32, _uint32,
        _uint32, Path, _uint32, _uint16, _uint8
    )(
        paths(files, count), count, mode, staySec, host, port, toE, kind, serialName, baudRate, destinationAddress,
        what
    )


def vxShowFilesII(
    files: Sequence[PathText], count: int, types: Buffer, reserved: int, host: Union[str, bytes], port: int, toE:
    int, kind: int, serialName: Optional[PathText], baudRate: int, destinationAddress: int, what: int
) -> int:
    """The same with a tree-form sequence file that is valid at all times and carries types[i] for file i. The sign's
    display style is left alone, the files go over whatever what says, a file that fails does not stop the list, and
    the result is that of the last transfer; 1 when the temporary file cannot be made. reserved is not used.
    """
    return number(
        "vxShowFilesII", ctypes.c_uint32, ctypes.c_void_p, _uint32, ctypes.c_void_p, _uint32, Ascii, _uint32,
        _uint32, _uint32, Path, _uint32, _uint16, _uint8
    )(
        paths(files, count), count, room(types, count), reserved, host, port, toE, kind, serialName, baudRate,
        destinationAddress, what
    )


def vxTubeCtrl(cmd: int, data: Buffer, size: int, host: Union[str, bytes], port: int) -> int:
    """vxTubeSet(cmd, data, size) with the connection as arguments."""
    return number("vxTubeCtrl", ctypes.c_uint32, _uint8, ctypes.c_void_p, _uint32, Ascii, _uint32)(cmd, room(data, size), size, host, port)


def vxTubeCtrlEx(
    cmd: int, data: Buffer, size: int, host: Union[str, bytes], port: int, kind: int, serialName:
    Optional[PathText], baudRate: int, destinationAddress: int
) -> int:
    """vxTubeSet(cmd, data, size) with the connection as arguments."""
    return number(
        "vxTubeCtrlEx", ctypes.c_uint32, _uint8, ctypes.c_void_p, _uint32, Ascii, _uint32, _uint32, Path, _uint32,
        _uint16
    )(cmd, room(data, size), size, host, port, kind, serialName, baudRate, destinationAddress)


def vxReadSysFile(name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadSysFile", ctypes.c_uint32, SignText, Path)(name, local)


def vxReadFontFile(name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadFontFile", ctypes.c_uint32, SignText, Path)(name, local)


def vxReadTextFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadTextFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxReadStringFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadStringFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxReadPictureFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadPictureFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxReadArrPicFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """System files and fonts by name, content files by drive and name, as the functions of write.h put them."""
    return number("vxReadArrPicFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxReadSpecPathFile(path: bytes, local: PathText) -> int:
    """Any path; packet numbers of 16 bits."""
    return number("vxReadSpecPathFile", ctypes.c_uint32, SignText, Path)(path, local)


def vxReadSpecPathFileEx(path: bytes, local: PathText) -> int:
    """Any path; packet numbers of 32 bits. The second reads what the sign makes up on request."""
    return number("vxReadSpecPathFileEx", ctypes.c_uint32, SignText, Path)(path, local)


def vxReadVirtualFile(path: bytes, local: PathText) -> int:
    """Any path; packet numbers of 32 bits. The second reads what the sign makes up on request."""
    return number("vxReadVirtualFile", ctypes.c_uint32, SignText, Path)(path, local)


def vxReadPlayLog(local: PathText) -> int:
    """The sign's play log."""
    return number("vxReadPlayLog", ctypes.c_uint32, Path)(local)


def vxReadWarning(local: PathText) -> int:
    """The sign's warning report, "E:\\errors.xml", as it is."""
    return number("vxReadWarning", ctypes.c_uint32, Path)(local)


def vxReadDataFlashInfo(out: Buffer) -> int:
    """Size of the data flash: 12 bytes at most; the product of the first two little-endian 16-bit numbers is the size
    in bytes.
    """
    return number("vxReadDataFlashInfo", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 12))


def vxReadDataFlashFile(local: PathText, size: int) -> int:
    """The data flash, size bytes of it, all if 0; packet numbers of 32 bits. The sign is given 3 seconds to get ready.
    onProgress is called for the first packet too.
    """
    return number("vxReadDataFlashFile", ctypes.c_uint32, Path, _uint32)(local, size)


def vxReadSystemSet(out: Buffer) -> int:
    """The system settings: 16 bytes that only the sign interprets."""
    return number("vxReadSystemSet", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 16))


def vxReadCurrentState(state: ctypes.c_uint64, buf: Optional[Buffer], size: int) -> int:
    """The sign's state word (8 bytes) and, if buf is not null, up to size bytes of its status record."""
    return number("vxReadCurrentState", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint64), ctypes.c_void_p, _uint32)(state, writable(buf, size), size)


def vxGetSNMAC(sn: Buffer, snSize: int, mac: Buffer, macSize: int) -> int:
    """Serial number (11 bytes at most) and hardware address (6 bytes). snSize is 12 at least, macSize 6 at least; what
    the two leave of their buffers is cleared.
    """
    return number("vxGetSNMAC", ctypes.c_uint32, ctypes.c_void_p, _uint32, ctypes.c_void_p, _uint32)(writable(sn, snSize), snSize, writable(mac, macSize), macSize)


def vxReadCPUUpdateResult() -> int:
    """0 when the last update of the processor went well."""
    return number("vxReadCPUUpdateResult", ctypes.c_uint32)()


def vxReadDefDisplayStyle(style: Buffer) -> int:
    """The default display style: 52 bytes, see vxWriteDefDisplayStyle."""
    return number("vxReadDefDisplayStyle", ctypes.c_uint32, ctypes.c_void_p)(writable(style, 52))


def vxReadSystemInfo(buf: Buffer, size: int, len: ctypes.c_uint32) -> int:
    """A record of the sign's own making: *len is its announced length, buf gets the first size bytes of it at most."""
    return number("vxReadSystemInfo", ctypes.c_uint32, ctypes.c_void_p, _uint32, ctypes.POINTER(ctypes.c_uint32))(writable(buf, size), size, len)


def vxReadErrorLog(buf: Buffer, size: int, len: ctypes.c_uint32) -> int:
    """A record of the sign's own making: *len is its announced length, buf gets the first size bytes of it at most."""
    return number("vxReadErrorLog", ctypes.c_uint32, ctypes.c_void_p, _uint32, ctypes.POINTER(ctypes.c_uint32))(writable(buf, size), size, len)


def vxReadDB(id: int, sql: bytes, outA: Buffer, sizeA: int, outB: Buffer, sizeB: int) -> int:
    """Runs sql in the sign's database id. outA gets the head of the answer (its first 16 bits are the number of rows),
    outB the rows as text, each column in angle brackets, without terminator.
    """
    return number("vxReadDB", ctypes.c_uint32, _uint16, SignText, ctypes.c_void_p, _int, ctypes.c_void_p, _uint32)(id, sql, writable(outA, sizeA), sizeA, writable(outB, sizeB), sizeB)


def vxReadBrightInfo(a: Optional[ctypes.c_uint8], b: ctypes.c_uint8, c: ctypes.c_uint8) -> int:
    """Brightness: three bytes (a may be null), and the extended record, up to 8 bytes."""
    return number(
        "vxReadBrightInfo", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8)
    )(a, b, c)


def vxReadBrightInfoExt(out: Buffer) -> int:
    """Brightness: three bytes (a may be null), and the extended record, up to 8 bytes."""
    return number("vxReadBrightInfoExt", ctypes.c_uint32, ctypes.c_void_p)(writable(out, 8))


def vxReadStats(which: int, buf: Buffer, size: int) -> int:
    """A statistics record of the sign, size bytes of it at most; VX_ARGUMENTS for a size of 0."""
    return number("vxReadStats", ctypes.c_uint32, _uint8, ctypes.c_void_p, _uint32)(which, writable(buf, size), size)


def vxReadPCBID(id: ctypes.c_uint32) -> int:
    """The number of the sign's board, and how many ports it has: as the sign says or, where it says 0, as is known of
    that board.
    """
    return number("vxReadPCBID", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint32))(id)


def vxReadPCBIDAndPort(id: ctypes.c_uint32, ports: ctypes.c_uint8) -> int:
    """The number of the sign's board, and how many ports it has: as the sign says or, where it says 0, as is known of
    that board.
    """
    return number(
        "vxReadPCBIDAndPort", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint32), ctypes.POINTER(ctypes.c_uint8)
    )(id, ports)


def vxLCReadUpdateStatus(
    addrLow: int, addrHigh: int, first: Optional[ctypes.c_uint8], second: Optional[ctypes.c_uint8]
) -> int:
    """Update status of the board (addrHigh << 8) | addrLow. first (only where addrLow is 0) becomes 0 or 255, second 1
    or 255; either may be null to leave it out. Each is set to 255 before its own request, also when that then fails.
    When the request for first fails, the thread's destinationAddress stays changed.
    """
    return number(
        "vxLCReadUpdateStatus", ctypes.c_uint32, _uint8, _uint8, ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8)
    )(addrLow, addrHigh, first, second)


def vxEasyReadFile(local: PathText, path: bytes, host: Union[str, bytes], port: int) -> int:
    """One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
    arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are taken.
    kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind is serial.
    Any failure that has no code of its own gives VX_CALL.
    """
    return number("vxEasyReadFile", ctypes.c_uint32, Path, SignText, Ascii, _uint32)(local, path, host, port)


def vxEasyWriteFile(local: PathText, path: bytes, host: Union[str, bytes], port: int) -> int:
    """One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
    arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are taken.
    kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind is serial.
    Any failure that has no code of its own gives VX_CALL.
    """
    return number("vxEasyWriteFile", ctypes.c_uint32, Path, SignText, Ascii, _uint32)(local, path, host, port)


def vxEasyReadFileEx(
    local: PathText, path: bytes, host: Union[str, bytes], port: int, kind: int, serialName: Optional[PathText],
    baud: int, destination: int
) -> int:
    """One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
    arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are taken.
    kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind is serial.
    Any failure that has no code of its own gives VX_CALL.
    """
    return number(
        "vxEasyReadFileEx", ctypes.c_uint32, Path, SignText, Ascii, _uint32, _uint32, Path, _uint32, _uint16
    )(local, path, host, port, kind, serialName, baud, destination)


def vxEasyWriteFileEx(
    local: PathText, path: bytes, host: Union[str, bytes], port: int, kind: int, serialName: Optional[PathText],
    baud: int, destination: int
) -> int:
    """One file in one call, with no vxInitAPI before: the thread's configuration is replaced by one made from the
    arguments (3 tries of 3000 ms) and stays so. host is an IPv4 address as dotted text, of which 32 bytes are taken.
    kind, serialName, baud and destination are those of vxApiConfig; serialName may be null unless kind is serial.
    Any failure that has no code of its own gives VX_CALL.
    """
    return number(
        "vxEasyWriteFileEx", ctypes.c_uint32, Path, SignText, Ascii, _uint32, _uint32, Path, _uint32, _uint16
    )(local, path, host, port, kind, serialName, baud, destination)


def vxErrorDesc(code: int) -> bytes:
    """The English text of a result word: a constant; "Unknow Error!" for a number that is not known."""
    return text("vxErrorDesc", ctypes.c_char_p, _uint32)(code)


def vxChkSum(buffer: Buffer, start: int, end: int, mode: int) -> int:
    """The checksum of the bytes start up to but not including end of buffer, 0 if there are none. mode 1: CRC-16 in the
    reflected form of 0x8408 with seed 0xFFFF, complemented, its two bytes exchanged ("123456789" gives 0x6E90). Any
    other mode: the sum of the bytes, its low 16 bits. A null buffer gives 0.
    """
    return number("vxChkSum", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint32, _uint32)(room(buffer, end), start, end, mode)


def vxReadStatusInfo(
    tempFolder: PathText, user: int, reserved: int, callback: Any, longitudeBits: int, latitudeBits: int,
    useSignBeacon: Union[bytes, int]
) -> int:
    """Gathers the sign's status, its beacon and what it shows, and calls callback once. What that returns is not looked
    at. longitudeBits and latitudeBits are the bits of two 32-bit floats: degrees with 2000 added, east and north
    positive. A value of 1000 or less in either means that there is no position. With useSignBeacon not 0 the beacon
    is made of vxGetSignBeacon (bytes 1, 0, 2 and 3 of it become 0, 4, 5 and 6; 255 in byte 0 becomes 0), of bytes 1
    and 2 of vxGetExternalEquipment, and in byte 3 of 1 for a first power byte of 0; a sign that does not know the
    former gives its vxGetBeacon, as with useSignBeacon 0. messagePath is tempFolder (which ends in a separator) and
    the name that the sign tells, less any folder. With onMessageToGif set (vxApiConfig) that message is turned into
    "monitor.gif" in tempFolder; when nothing plays, the message is "\\__BLANK.VXB" behind tempFolder. Returns the
    failure of vxReadCurrentState, without a call of callback; else what the last reading of beacon or power gave.
    Other readings that fail leave zeros: a sign that falls silent behind its state holds the call for the time of
    six more exchanges.
    """
    return number(
        "vxReadStatusInfo", ctypes.c_uint32, Path, _uint32, _uint64, vxOnStatusInfo, _uint32, _uint32, ctypes.c_char
    )(tempFolder, user, reserved, callback, longitudeBits, latitudeBits, useSignBeacon)


def vxUpdate3Info(record: Buffer) -> int:
    """Puts four bytes of the status into a record of the caller's, which has 569 bytes at least: Value0, Value1 and
    Value3 of vxStatusRecord at 565 to 567, and byte 3 of vxGetBeacon (0 when that fails) at 568. Returns what
    vxReadCurrentState gives.
    """
    return number("vxUpdate3Info", ctypes.c_uint32, ctypes.c_void_p)(writable(record, 569))


def vxReadSignWaringLog(localPath: PathText, signName: bytes, callback: Any) -> int:
    """Fetches the sign's ring of warnings, "E:\\STATUS.SYS", into the file localPath, where it stays; the sign's is
    deleted. The rows come from the first time stamp behind the oldest record on; a ring whose oldest record is a
    time stamp gives none. Returns what the last callback gave, 0 without rows and for a sign that has no ring; what
    the transfer gives when it fails; VX_OPEN_FILE when the local file cannot be opened, VX_FILE_FORMAT when it is no
    ring.
    """
    return number("vxReadSignWaringLog", ctypes.c_uint32, Path, SignText, vxOnWaringLog)(localPath, signName, callback)


def vxReadWaringReport(callback: Any) -> int:
    """Reads the sign's report, "E:\\errors.xml": a row for each warning of the main board and of each tile, and one
    each for a number of bad pixels and of bad signals that is not 0 (Name "PixelError" or "SignalError", Value
    "Num=12"). What the callback returns is not looked at. Returns what the transfer gives when it fails, 3 when the
    temporary file cannot be opened, the error number of the XML parser for a file that is not well formed.
    """
    return number("vxReadWaringReport", ctypes.c_uint32, vxOnWaringReport)(callback)


def vxReadWarningLog(head: Buffer, rows: Buffer, count: int) -> int:
    """Reads the log of the sign's own program, "D:\\log\\vxspeapp.log": its first 16 bytes into head and, if these
    begin with "GL", the next count records of 32 bytes into rows. What the file lacks is zero. The records are the
    sign's. Returns what the transfer gives, or VX_OPEN_FILE when the temporary file cannot be opened.
    """
    return number("vxReadWarningLog", ctypes.c_uint32, ctypes.c_void_p, ctypes.c_void_p, _uint8)(writable(head, (8) * ctypes.sizeof(ctypes.c_uint16)), writable(rows, count * 32), count)


def vxTarsisGetTileStat(tile: int, taskId: ctypes.c_uint32) -> int:
    """Start the task that gives a tile's status (its result begins with a TileStatRecord) and the one that tests a
    tile; testCode is the tile's. taskId gets the task; an answer that names none leaves it as it was. VX_ARGUMENTS
    for a tile above 494; the test also takes 65535, all tiles.
    """
    return number("vxTarsisGetTileStat", ctypes.c_uint32, _uint16, ctypes.POINTER(ctypes.c_uint32))(tile, taskId)


def vxTarsisTileTest(tile: int, testCode: int, taskId: ctypes.c_uint32) -> int:
    """Start the task that gives a tile's status (its result begins with a TileStatRecord) and the one that tests a
    tile; testCode is the tile's. taskId gets the task; an answer that names none leaves it as it was. VX_ARGUMENTS
    for a tile above 494; the test also takes 65535, all tiles.
    """
    return number("vxTarsisTileTest", ctypes.c_uint32, _uint16, _uint8, ctypes.POINTER(ctypes.c_uint32))(tile, testCode, taskId)


def vxTarsisGetResult(taskId: int, buffer: Buffer, bufferSize: int, status: ctypes.c_uint16) -> int:
    """Waits for the end of a task, asking 3000 times at most, with 100 ms in between: five minutes, and the time that
    the sign takes for its answers. status is written in any case: VX_TASK_SUCCESS when buffer has got the result, as
    much of it as bufferSize takes; VX_TASK_WAITING or VX_TASK_PROCESSING when the task has not ended; otherwise how
    it ended. Returns the result of the last question.
    """
    return number(
        "vxTarsisGetResult", ctypes.c_uint32, _uint32, ctypes.c_void_p, _uint32, ctypes.POINTER(ctypes.c_uint16)
    )(taskId, writable(buffer, bufferSize), bufferSize, status)


def vxTarsisSetTileCmd(tile: int, command: int) -> int:
    """Sends a tile a command and waits. Returns how the task ended, 0 for success. VX_ARGUMENTS for 495 to 65534; 65535
    goes out as address 1 of the second bus. A task that has not ended after five minutes or so gives its state: 3
    while it is worked on, but 0 while it still waits for its turn.
    """
    return number("vxTarsisSetTileCmd", ctypes.c_uint32, _uint16, _uint8)(tile, command)


def vxTarsisWriteTileFile(localPath: PathText, tile: int, fileType: int) -> int:
    """Installs a local file in a tile, by way of the sign's drive C. fileType: 0 to 4, VX_ARGUMENTS for any other.
    Returns how the command at the end of the installation ended, as vxTarsisSetTileCmd does; what goes wrong on the
    way to it is not told.
    """
    return number("vxTarsisWriteTileFile", ctypes.c_uint32, Path, _uint16, _uint8)(localPath, tile, fileType)


def vxTarsisReadTileFile(localPath: PathText, tile: int, fileType: int) -> int:
    """Reads the calibration of a tile into a local file; fileType is 4, VX_ARGUMENTS for any other. VX_OPEN_FILE when
    the local file cannot be made, VX_CALL when it cannot be written; otherwise how the task that failed ended.
    """
    return number("vxTarsisReadTileFile", ctypes.c_uint32, Path, _uint16, _uint8)(localPath, tile, fileType)


def vxTarsisFMCalOpt(option: int) -> int:
    """Two commands of the control board; what option means is the sign's."""
    return number("vxTarsisFMCalOpt", ctypes.c_uint32, _uint8)(option)


def vxFlashPGMConnectCMD() -> int:
    """Two commands of the control board; what option means is the sign's."""
    return number("vxFlashPGMConnectCMD", ctypes.c_uint32)()


def vxTarsisTilePxlLoad(
    pixels: Buffer, pixelBytes: int, path: PathText, tileKind: int, tileModel: int, width: int, height: int,
    moduleWidth: int, moduleHeight: int
) -> int:
    """Read and write a tile pixel file, without a sign. pixels holds a TilePixelRecord for each pixel, row after row:
    pixelBytes must be width * height * 18. tileKind, tileModel and the sizes, all in pixels, choose the order of the
    file. A file with fewer records than that order wants repeats the last one. VX_ARGUMENTS for a null pointer,
    another pixelBytes, a module of no size or one that is larger than the tile; VX_OPEN_FILE for a local file that
    cannot be opened, and on loading for one that is no pixel file or has less than 6 bytes a pixel; VX_CALL for one
    that cannot be written.
    """
    return number(
        "vxTarsisTilePxlLoad", ctypes.c_uint32, ctypes.c_void_p, _uint32, Path, _uint32, _uint32, _uint32, _uint32,
        _uint32, _uint32
    )(
        writable(pixels, pixelBytes), pixelBytes, path, tileKind, tileModel, width, height, moduleWidth,
        moduleHeight
    )


def vxTarsisTilePxlSave(
    pixels: Buffer, pixelBytes: int, path: PathText, tileKind: int, tileModel: int, width: int, height: int,
    moduleWidth: int, moduleHeight: int
) -> int:
    """Read and write a tile pixel file, without a sign. pixels holds a TilePixelRecord for each pixel, row after row:
    pixelBytes must be width * height * 18. tileKind, tileModel and the sizes, all in pixels, choose the order of the
    file. A file with fewer records than that order wants repeats the last one. VX_ARGUMENTS for a null pointer,
    another pixelBytes, a module of no size or one that is larger than the tile; VX_OPEN_FILE for a local file that
    cannot be opened, and on loading for one that is no pixel file or has less than 6 bytes a pixel; VX_CALL for one
    that cannot be written.
    """
    return number(
        "vxTarsisTilePxlSave", ctypes.c_uint32, ctypes.c_void_p, _uint32, Path, _uint32, _uint32, _uint32, _uint32,
        _uint32, _uint32
    )(
        room(pixels, pixelBytes), pixelBytes, path, tileKind, tileModel, width, height, moduleWidth, moduleHeight
    )


def vxConnectTest(first: ctypes.c_uint16, second: ctypes.c_uint16, third: ctypes.c_uint32) -> int:
    """Asks for a sign of life: three numbers of the sign's."""
    return number(
        "vxConnectTest", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint16),
        ctypes.POINTER(ctypes.c_uint32)
    )(first, second, third)


def vxPatternTest(pattern: int) -> int:
    """Test pattern 2 to 15, VX_ARGUMENTS for any other; and the end of the test, whichever it is."""
    return number("vxPatternTest", ctypes.c_uint32, _uint8)(pattern)


def vxStopTest() -> int:
    """Test pattern 2 to 15, VX_ARGUMENTS for any other; and the end of the test, whichever it is."""
    return number("vxStopTest", ctypes.c_uint32)()


def vxColorTest(red: int, green: int, blue: int) -> int:
    """The whole face in one colour."""
    return number("vxColorTest", ctypes.c_uint32, _uint8, _uint8, _uint8)(red, green, blue)


def vxCrayTest(state: vxCrayState) -> int:
    """Shows the cray test in that state."""
    return number("vxCrayTest", ctypes.c_uint32, ctypes.POINTER(vxCrayState))(state)


def vxAreaTest(area: Buffer) -> int:
    """An area of the face: 24 bytes (three numbers of 64 bits) that only the sign interprets."""
    return number("vxAreaTest", ctypes.c_uint32, ctypes.c_void_p)(room(area, (3) * ctypes.sizeof(ctypes.c_uint64)))


def vxLocationTest(
    first: int, second: int, third: int, fourth: int, data: Buffer, count: int, fifth: int
) -> int:
    """Locations on the face: five numbers and count values of 16 bits."""
    return number(
        "vxLocationTest", ctypes.c_uint32, _uint16, _uint16, _uint16, _uint16, ctypes.c_void_p, _uint32, _uint16
    )(first, second, third, fourth, room(data, count * 2), count, fifth)


def vxDebugInfoSetting(value: int) -> int:
    """Which debug information the sign gives."""
    return number("vxDebugInfoSetting", ctypes.c_uint32, _uint32)(value)


def vxStabilityTest(data: Buffer, length: int, id: int) -> int:
    """Sends length bytes for a stability test, in a packet whose id is id + 1. The ids of all threads go on from there."""
    return number("vxStabilityTest", ctypes.c_uint32, ctypes.c_void_p, _uint8, _uint16)(room(data, length), length, id)


def vxReadLEDTime(
    year: ctypes.c_uint16, month: ctypes.c_uint8, day: ctypes.c_uint8, hour: ctypes.c_uint8, minute: ctypes.c_uint8,
    sixth: ctypes.c_uint8, seventh: ctypes.c_uint8, eighth: ctypes.c_uint8
) -> int:
    """The sign's clock. sixth to eighth are the sign's, in one order for both; sixth always reads as 0."""
    return number(
        "vxReadLEDTime", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8)
    )(year, month, day, hour, minute, sixth, seventh, eighth)


def vxAjustLEDTimeEx(
    year: int, month: int, day: int, hour: int, minute: int, sixth: int, seventh: int, eighth: int
) -> int:
    """The sign's clock. sixth to eighth are the sign's, in one order for both; sixth always reads as 0."""
    return number(
        "vxAjustLEDTimeEx", ctypes.c_uint32, _uint16, _uint8, _uint8, _uint8, _uint8, _uint8, _uint8, _uint8
    )(year, month, day, hour, minute, sixth, seventh, eighth)


def vxSendTempHumi(first: int, second: int) -> int:
    """Tells the sign temperature and humidity, once: 0 as soon as the channel is open, whatever the sign answers.
    second goes over in sixteenths.
    """
    return number("vxSendTempHumi", ctypes.c_uint32, _uint8, _int8)(first, second)


def vxWriteSpeedLimit(first: int, second: int) -> int:
    """The speed limit: two numbers of the sign's."""
    return number("vxWriteSpeedLimit", ctypes.c_uint32, _uint16, _uint16)(first, second)


def vxTubeSet(minor: int, data: Buffer, length: int) -> int:
    """Sends length bytes of data to the tube display under the given minor command."""
    return number("vxTubeSet", ctypes.c_uint32, _uint8, ctypes.c_void_p, _uint32)(minor, room(data, length), length)


def vxCustomTest(
    major: int, minor: int, payload: Buffer, payloadLength: int, extended: Buffer, extendedLength: int, crc: int,
    requestOut: Optional[Buffer], requestLength: Optional[ctypes.c_uint8], replyOut: Optional[Buffer], replyLength:
    Optional[ctypes.c_uint8]
) -> int:
    """Any command: sends the given payload and extended part under major and minor, with the CRC in place of the sum
    when crc is not 0. Whatever the result, requestOut (527 bytes at most) gets the request, replyOut (4608 bytes at
    most) what was read back, each whole, and the two lengths their total lengths cut to 8 bits (a packet's own
    header has the true one: 16 + 4 * byte 14 + byte 4 + 256 * byte 5). A reply that never came reads as zeros, of
    length 16. Null outputs are left out.
    """
    return number(
        "vxCustomTest", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p, _uint8, ctypes.c_void_p, _uint8, _uint8,
        ctypes.c_void_p, ctypes.POINTER(ctypes.c_uint8), ctypes.c_void_p, ctypes.POINTER(ctypes.c_uint8)
    )(
        major, minor, room(payload, payloadLength), payloadLength, room(extended, extendedLength), extendedLength,
        crc, writable(requestOut, 527), requestLength, writable(replyOut, 4608), replyLength
    )


def vxTickerStart(first: int, second: int, third: int) -> int:
    """Starts the ticker that runs what is uploaded, and stops it."""
    return number("vxTickerStart", ctypes.c_uint32, _uint8, _uint8, _uint8)(first, second, third)


def vxTickerStop() -> int:
    """Starts the ticker that runs what is uploaded, and stops it."""
    return number("vxTickerStop", ctypes.c_uint32)()


def vxGetBufferStatus(status: ctypes.c_uint16) -> int:
    """Which buffer can receive: status becomes VX_BUFFER_3_READY, VX_BUFFER_1_READY or VX_BUFFER_1_READY_TOO;
    vxErrorDesc has the words. A sign that answers without such a word gives 0 too, and status stays as it was.
    """
    return number("vxGetBufferStatus", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint16))(status)


def vxUploadBuffer(data: Buffer, length: int) -> int:
    """Sends length bytes into the receiving buffer, in packets of dataSize (vxApiConfig), 65535 of them at most.
    onProgress is called after each with the percentage so far. VX_ARGUMENTS for a length of 0.
    """
    return number("vxUploadBuffer", ctypes.c_uint32, ctypes.c_void_p, _uint32)(room(data, length), length)


def vxOffLineTickerStart(first: int, second: int, third: int, fourth: int) -> int:
    """The ticker that the sign runs by itself."""
    return number("vxOffLineTickerStart", ctypes.c_uint32, _uint8, _uint8, _uint8, _uint8)(first, second, third, fourth)


def vxOffLineTickerStop() -> int:
    """The ticker that the sign runs by itself."""
    return number("vxOffLineTickerStop", ctypes.c_uint32)()


def vxReadTCStatus(buffer: Buffer, size: ctypes.c_uint32) -> int:
    """The status and monitor blocks. size is the capacity of buffer and becomes the bytes copied; of monitorKind the
    low 8 bits go out.
    """
    return number("vxReadTCStatus", ctypes.c_uint32, ctypes.c_void_p, ctypes.POINTER(ctypes.c_uint32))(writable(buffer, held(size)), size)


def vxReadTCMonitor(monitorKind: int, buffer: Buffer, size: ctypes.c_uint32) -> int:
    """The status and monitor blocks. size is the capacity of buffer and becomes the bytes copied; of monitorKind the
    low 8 bits go out.
    """
    return number("vxReadTCMonitor", ctypes.c_uint32, _uint32, ctypes.c_void_p, ctypes.POINTER(ctypes.c_uint32))(monitorKind, writable(buffer, held(size)), size)


def vxTCGetRealStatus(buffer: Optional[Buffer], capacity: int, part: int) -> int:
    """A part of the real-time status: capacity bytes at most, the rest of buffer stays as it was. A null buffer takes
    nothing.
    """
    return number("vxTCGetRealStatus", ctypes.c_uint32, ctypes.c_void_p, _uint32, _uint8)(writable(buffer, capacity), capacity, part)


def vxTCManual(mode: int) -> int:
    """Switches to manual, or to what else mode means to the controller."""
    return number("vxTCManual", ctypes.c_uint32, _uint8)(mode)


def vxTCJKBLightTest(lamps: Buffer, lampCount: int) -> int:
    """The two lamp tests: lampCount bytes of lamps, firstCount + secondCount in the second one."""
    return number("vxTCJKBLightTest", ctypes.c_uint32, ctypes.c_void_p, _uint8)(room(lamps, lampCount), lampCount)


def vxTCJKCLightTest(lamps: Buffer, firstCount: int, secondCount: int) -> int:
    """The two lamp tests: lampCount bytes of lamps, firstCount + secondCount in the second one."""
    return number("vxTCJKCLightTest", ctypes.c_uint32, ctypes.c_void_p, _uint8, _uint8)(room(lamps, firstCount + secondCount), firstCount, secondCount)


def vxTrafficTempPhaseRun(phase: Buffer, flag: int) -> int:
    """Runs a phase of VX_TRAFFIC_PHASE bytes once; of flag the low 8 bits go out."""
    return number("vxTrafficTempPhaseRun", ctypes.c_uint32, ctypes.c_void_p, _uint32)(room(phase, VX_TRAFFIC_PHASE), flag)


def vxTrafficRFlow(query: Buffer, path: PathText) -> int:
    """The flow counters that the VX_TRAFFIC_FLOW_QUERY bytes of query ask for: the reply's payload and what follows it,
    1536 bytes at most, become the file path. VX_NOT_INITIALISED for a null, for a thread without configuration and
    for a channel that cannot be opened; VX_OPEN_FILE.
    """
    return number("vxTrafficRFlow", ctypes.c_uint32, ctypes.c_void_p, Path)(room(query, VX_TRAFFIC_FLOW_QUERY), path)


def vxReadTrafficTime(
    year: ctypes.c_uint16, month: ctypes.c_uint8, day: ctypes.c_uint8, hour: ctypes.c_uint8, minute: ctypes.c_uint8,
    second: ctypes.c_uint8, timeField7: ctypes.c_uint8, timeField8: ctypes.c_uint8
) -> int:
    """The controller's clock. The last two are the controller's: timeField7 travels in BCD, timeField8 as it is."""
    return number(
        "vxReadTrafficTime", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8)
    )(year, month, day, hour, minute, second, timeField7, timeField8)


def vxAjustTrafficTime(
    year: int, month: int, day: int, hour: int, minute: int, second: int, timeField7: int, timeField8: int
) -> int:
    """The controller's clock. The last two are the controller's: timeField7 travels in BCD, timeField8 as it is."""
    return number(
        "vxAjustTrafficTime", ctypes.c_uint32, _uint16, _uint8, _uint8, _uint8, _uint8, _uint8, _uint8, _uint8
    )(year, month, day, hour, minute, second, timeField7, timeField8)


def vxReadTrafficStatus(path: PathText) -> int:
    """A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
    status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
    VX_OPEN_FILE. No file is made when the reading fails.
    """
    return number("vxReadTrafficStatus", ctypes.c_uint32, Path)(path)


def vxReadTrafficMonitor(path: PathText) -> int:
    """A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
    status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
    VX_OPEN_FILE. No file is made when the reading fails.
    """
    return number("vxReadTrafficMonitor", ctypes.c_uint32, Path)(path)


def vxReadTrafficRealStatus(path: PathText) -> int:
    """A block as a file: TrafficDumpHeader and 2048 bytes at most of status or monitor, 102 bytes of the real-time
    status (part 0), of which those that the controller leaves out are zero. VX_NOT_INITIALISED for a null path,
    VX_OPEN_FILE. No file is made when the reading fails.
    """
    return number("vxReadTrafficRealStatus", ctypes.c_uint32, Path)(path)


def vxReadTrafficErrLog(localPath: PathText, signName: bytes, callback: Any) -> int:
    """The error log "E:\\ERR_REC\\ERRMSG.ERR", which is fetched to localPath and stays there. A callback that returns
    other than 0 ends the reading, and its value is the result. Else: what the transfer gives when it fails,
    VX_OPEN_FILE, or 0. Codes that the library does not know come with level 0 and an empty text before " ErrCNT=".
    Some texts end in an address of one byte, which is a control character and not a digit.
    """
    return number("vxReadTrafficErrLog", ctypes.c_uint32, Path, SignText, vxOnTrafficError)(localPath, signName, callback)


def vxReadTrafficTempLog(localPath: PathText, signName: bytes, callback: Any) -> int:
    """The temperature log: each file of "E:\\TEP_REC\\" holds a month of one source; the month is the latest one that
    has begun. The files are fetched to localPath one after the other; the last one stays there. Files whose names
    tell no source and month are passed over. Each day of a file gives 24 records, for the hours 0 to 23, all with
    the same sample: by rule it is the byte of the day's row at the place that the file has in its page of 20 entries
    of the directory. A callback that returns other than 0 for the hour 23 ends its file. Returns what the callback
    returned last, or what the transfer of the last file gave; a failure of the last file of a page ends the reading.
    """
    return number("vxReadTrafficTempLog", ctypes.c_uint32, Path, SignText, vxOnTrafficTemp)(localPath, signName, callback)


def vxMPUSelChannel(first: int, second: int) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSelChannel", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxMPUSelChannelEx(first: int, second: int) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSelChannelEx", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxMPUSetVideoArg(first: int, second: int) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSetVideoArg", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxMPUSetHDMI_DP_Out(first: int, second: int) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSetHDMI_DP_Out", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxMPUSetEDID(first: int, edid: Buffer) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSetEDID", ctypes.c_uint32, _uint8, ctypes.c_void_p)(first, room(edid, 15))


def vxMPUSetINBPhase(first: int, second: int) -> int:
    """MPU: channels, pictures and ports. edid: 15 bytes."""
    return number("vxMPUSetINBPhase", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxMPUSetWin(
    first: int, value1: int, value2: int, value3: int, value4: int, last: int, taskId: Optional[ctypes.c_uint32]
) -> int:
    """Sets a window, which takes the MPU a while: *taskId becomes the number to ask for its progress with; a null
    leaves it out. Of first the low byte goes over. There is no waiting here, and which progress means the end is the
    MPU's.
    """
    return number(
        "vxMPUSetWin", ctypes.c_uint32, _uint16, _uint16, _uint16, _uint16, _uint16, _uint8,
        ctypes.POINTER(ctypes.c_uint32)
    )(first, value1, value2, value3, value4, last, taskId)


def vxMPUProgressByTaskID(taskId: int, progress: ctypes.c_uint8) -> int:
    """Sets a window, which takes the MPU a while: *taskId becomes the number to ask for its progress with; a null
    leaves it out. Of first the low byte goes over. There is no waiting here, and which progress means the end is the
    MPU's.
    """
    return number("vxMPUProgressByTaskID", ctypes.c_uint32, _uint32, ctypes.POINTER(ctypes.c_uint8))(taskId, progress)


def vxVPUSelChannel(first: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSelChannel", ctypes.c_uint32, _uint8)(first)


def vxVPUSetMode(first: int, second: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetMode", ctypes.c_uint32, _uint8, _uint8)(first, second)


def vxVPUSetVideoRatio(first: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetVideoRatio", ctypes.c_uint32, _uint8)(first)


def vxVPUSetDVIWin(value1: int, value2: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetDVIWin", ctypes.c_uint32, _uint16, _uint16)(value1, value2)


def vxVPUSetVideoWin(value1: int, value2: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetVideoWin", ctypes.c_uint32, _uint16, _uint16)(value1, value2)


def vxVPUSetVideoArg(value1: int, value2: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetVideoArg", ctypes.c_uint32, _uint16, _uint16)(value1, value2)


def vxVPUType(first: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUType", ctypes.c_uint32, _uint8)(first)


def vxVPUSlaverStartLine(value1: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSlaverStartLine", ctypes.c_uint32, _uint16)(value1)


def vxVPUSetColorTemp(first: int, second: int, third: int, fourth: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetColorTemp", ctypes.c_uint32, _uint8, _uint8, _uint8, _uint8)(first, second, third, fourth)


def vxVPUSetGamma(first: int) -> int:
    """VPU: channel, mode, windows and picture."""
    return number("vxVPUSetGamma", ctypes.c_uint32, _uint8)(first)


def vxVPUSetBright(first: int, second: int, third: int, fourth: int) -> int:
    """Brightness: four numbers."""
    return number("vxVPUSetBright", ctypes.c_uint32, _uint8, _uint8, _uint8, _uint8)(first, second, third, fourth)


def vxVPUGetBright(
    out1: ctypes.c_uint8, out2: ctypes.c_uint8, out3: ctypes.c_uint8, out4: ctypes.c_uint8
) -> int:
    """Brightness: four numbers."""
    return number(
        "vxVPUGetBright", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8),
        ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8)
    )(out1, out2, out3, out4)


def vxVPUSetLDUNums(first: int) -> int:
    """Number and position of the LDUs. Of each value the low byte goes over."""
    return number("vxVPUSetLDUNums", ctypes.c_uint32, _uint8)(first)


def vxVPUSetLDUPos(value1: int, value2: int, value3: int) -> int:
    """Number and position of the LDUs. Of each value the low byte goes over."""
    return number("vxVPUSetLDUPos", ctypes.c_uint32, _uint16, _uint16, _uint16)(value1, value2, value3)


def vxVPUGetSignalStatus(
    status1: ctypes.c_uint16, status2: ctypes.c_uint16, status3: ctypes.c_uint16, status4: ctypes.c_uint16
) -> int:
    """The state of the inputs, four numbers, and what the VPU tells about itself, 24 bytes."""
    return number(
        "vxVPUGetSignalStatus", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint16),
        ctypes.POINTER(ctypes.c_uint16), ctypes.POINTER(ctypes.c_uint16)
    )(status1, status2, status3, status4)


def vxVPUGetInfo(info: Buffer) -> int:
    """The state of the inputs, four numbers, and what the VPU tells about itself, 24 bytes."""
    return number("vxVPUGetInfo", ctypes.c_uint32, ctypes.c_void_p)(writable(info, 24))


def vxVPUSetPixcelMode(first: int) -> int:
    """The mode of the pixels. This and vxVPUGetInfo are one command to the VPU: with 0 for first it is taken for the
    question, and its answer is dropped.
    """
    return number("vxVPUSetPixcelMode", ctypes.c_uint32, _uint8)(first)


def vxWriteSystemFile(name: bytes, local: PathText) -> int:
    """System files, such as "SEQUENT.SYS" or "CONFIG.SYS", and fonts: where they live is the sign's own."""
    return number("vxWriteSystemFile", ctypes.c_uint32, SignText, Path)(name, local)


def vxWriteFontFile(name: bytes, local: PathText) -> int:
    """System files, such as "SEQUENT.SYS" or "CONFIG.SYS", and fonts: where they live is the sign's own."""
    return number("vxWriteFontFile", ctypes.c_uint32, SignText, Path)(name, local)


def vxWriteTextFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """Content files by drive and name; the folder follows from the kind of file."""
    return number("vxWriteTextFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxWriteStringFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """Content files by drive and name; the folder follows from the kind of file."""
    return number("vxWriteStringFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxWritePictureFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """Content files by drive and name; the folder follows from the kind of file."""
    return number("vxWritePictureFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxWriteArrPicFile(disk: Union[bytes, int], name: bytes, local: PathText) -> int:
    """Content files by drive and name; the folder follows from the kind of file."""
    return number("vxWriteArrPicFile", ctypes.c_uint32, ctypes.c_char, SignText, Path)(disk, name, local)


def vxWriteSpecFile(path: bytes, local: PathText) -> int:
    """Any path. The first form numbers its packets in 16 bits (65535 packets at most), the second in 32."""
    return number("vxWriteSpecFile", ctypes.c_uint32, SignText, Path)(path, local)


def vxWriteSpecFileEx(path: bytes, local: PathText) -> int:
    """Any path. The first form numbers its packets in 16 bits (65535 packets at most), the second in 32."""
    return number("vxWriteSpecFileEx", ctypes.c_uint32, SignText, Path)(path, local)


def vxWriteFileOptimize(path: bytes, local: PathText) -> int:
    """As vxWriteSpecFileEx, with up to 8 packets on their way at a time. onProgress is called once, with 0 percent.
    Packets that are not acknowledged within 4 seconds go out again; more than retries of these end the transfer with
    VX_COMMUNICATION. The acknowledgement of a packet with id 0, once in the 65536 packets of a process, does not
    count by rule: such a transfer ends with VX_COMMUNICATION (retries + 1) x 4 seconds behind its last
    acknowledgement. Send the file once more then; one of 65535 packets and more needs vxWriteSpecFileEx. A file of
    one packet is sent twice. Behind its last acknowledgement a window lasts (retries + 2) x 4 seconds at most.
    Through onRead it looks without waiting, every 5 ms while nothing comes.
    """
    return number("vxWriteFileOptimize", ctypes.c_uint32, SignText, Path)(path, local)


def vxWriteDataFlashFile(local: PathText, size: int) -> int:
    """Data flash contents: size bytes, the file's size if 0. A size beyond the file's end sends empty packets for the
    rest.
    """
    return number("vxWriteDataFlashFile", ctypes.c_uint32, Path, _uint32)(local, size)


def vxWriteAbsoluteAddress(addrLow: int, addrHigh: int, local: PathText) -> int:
    """Memory of a board, in blocks of 1024 bytes from offset 0. The board is addrHigh; addrLow is 0 or 1, and the
    destination address of the call is (addrHigh << 8) | addrLow. A file that cannot be opened gives VX_ARGUMENTS.
    When the transfer fails, the thread's destinationAddress stays changed.
    """
    return number("vxWriteAbsoluteAddress", ctypes.c_uint32, _uint8, _uint8, Path)(addrLow, addrHigh, local)


def vxWriteUrgentMsg(a: int, b: int, data: Buffer, len: int) -> int:
    """An urgent message of len bytes; a and b are the sign's selectors. The sign refuses more than 1024 bytes."""
    return number("vxWriteUrgentMsg", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p, _uint32)(a, b, room(data, len), len)


def vxWriteBrightCtrlBlock(block: Buffer) -> int:
    """The brightness control block: 12 bytes that only the sign interprets."""
    return number("vxWriteBrightCtrlBlock", ctypes.c_uint32, ctypes.c_void_p)(room(block, 12))


def vxWriteSNMAC(sn: Buffer, snSize: int, mac: Buffer, macSize: int) -> int:
    """Serial number (11 bytes at most) and hardware address (16 bytes at most) of the sign."""
    return number("vxWriteSNMAC", ctypes.c_uint32, ctypes.c_void_p, _uint32, ctypes.c_void_p, _int)(room(sn, snSize), snSize, room(mac, macSize), macSize)


def vxWriteDefDisplayStyle(style: Buffer) -> int:
    """The default display style: 52 bytes. Byte 2 is 'E' or 'C' (where the content plays from), bytes 11 and 12 are
    entry and exit mode, byte 14 is a short stay time in seconds, 255 meaning the 32-bit stay time at offset 16.
    """
    return number("vxWriteDefDisplayStyle", ctypes.c_uint32, ctypes.c_void_p)(room(style, 52))


def vxWriteCRCForFile(name: bytes, size: int, crc: int) -> int:
    """Size and checksum that the sign is to find for a file. The first 32 bytes of name count."""
    return number("vxWriteCRCForFile", ctypes.c_uint32, SignText, _uint32, _uint16)(name, size, crc)


def vxLCSetUpdateStatus(addrLow: int, addrHigh: int, status: int) -> int:
    """Update status of the board (addrHigh << 8) | addrLow: 0, 1 or 2, but not 1 where addrLow is 1."""
    return number("vxLCSetUpdateStatus", ctypes.c_uint32, _uint8, _uint8, _uint8)(addrLow, addrHigh, status)


def vxXModem_Upgrade(path: PathText) -> int:
    """Sends the file at path in blocks of 128 bytes, the last one filled up with 0x1A, once the receiver has asked for
    them: with 'C' for blocks with a CRC, with NAK for blocks with a checksum. Each step is tried up to retries times
    for timeoutMs: ten steps for the receiver to ask, 20 for each block, and 11 more for one that it goes on
    refusing. Behind a block that was confirmed silence ends the next one after one step. onProgress is called behind
    each block that the receiver has confirmed, and counts those alone. VX_OPEN_FILE, with nothing sent, when the
    file cannot be opened. VX_UPGRADE_FAILED when the receiver does not ask, or goes on refusing a block. Any other
    end gives VX_OK, also one without success: after "Fatal Error!" the receiver answered a block neither with ACK
    nor with NAK, and "sedn EOT:wait ACK tiem out!" tells that it did not confirm the end. Silence behind a block
    that was confirmed counts as another confirmation. abortFlag ends the waiting, and with it the transfer in one of
    these ways.
    """
    return number("vxXModem_Upgrade", ctypes.c_uint32, Path)(path)


def vxDivideZoneBase(pageId: int, zoneId: int, data: Buffer, length: int) -> int:
    """Divides a page, or a zone of it: the head and its entries, 127 at most."""
    return number("vxDivideZoneBase", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p, _uint8)(pageId, zoneId, room(data, length), length)


def vxDivideZone(pageId: int, zoneId: int, head: ZoneHead, entries: Buffer) -> int:
    """Divides a page, or a zone of it: the head and its entries, 127 at most."""
    return number("vxDivideZone", ctypes.c_uint32, _uint8, _uint8, ZoneHead, ctypes.c_void_p)(pageId, zoneId, head, room(entries, head.zoneCount * 12))


def vxDivideZone4j(pageId: int, zoneId: int, head: ZoneHead, entries: Buffer) -> int:
    """Divides a page, or a zone of it: the head and its entries, 127 at most."""
    return number("vxDivideZone4j", ctypes.c_uint32, _uint8, _uint8, ctypes.POINTER(ZoneHead), ctypes.c_void_p)(pageId, zoneId, head, behind(entries, head.zoneCount * 12))


def vxGetZoneBase(out: Buffer, outLength: int) -> int:
    """The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at most;
    VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as many of its
    entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
    """
    return number("vxGetZoneBase", ctypes.c_uint32, ctypes.c_void_p, _uint32)(writable(out, outLength), outLength)


def vxGetZone(head: ZoneHead, entries: Buffer, maxEntries: int, pageId: int) -> int:
    """The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at most;
    VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as many of its
    entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
    """
    return number("vxGetZone", ctypes.c_uint32, ctypes.POINTER(ZoneHead), ctypes.c_void_p, _uint8, _uint8)(head, writable(entries, maxEntries * 12), maxEntries, pageId)


def vxGetZone4j(head: ZoneHead, entries: Buffer, maxEntries: int, pageId: int) -> int:
    """The division that stands. The Base form names no page and gets what the sign has to say, outLength bytes at most;
    VX_ARGUMENTS for an outLength of 0. The others get the head, with the zoneCount of the sign, and as many of its
    entries of 12 bytes as there are, maxEntries at most; the rest of entries stays as it was.
    """
    return number("vxGetZone4j", ctypes.c_uint32, ctypes.POINTER(ZoneHead), ctypes.c_void_p, _uint8, _uint8)(head, behind(entries, maxEntries * 12), maxEntries, pageId)


def vxSetDisplayBase(pageId: int, zoneId: int, option: int, data: Buffer, length: int) -> int:
    """How a zone shows its content: the head and its data."""
    return number("vxSetDisplayBase", ctypes.c_uint32, _uint8, _uint8, _uint8, ctypes.c_void_p, _uint8)(pageId, zoneId, option, room(data, length), length)


def vxSetDisplay(pageId: int, zoneId: int, option: int, head: DisplayHead, data: Buffer) -> int:
    """How a zone shows its content: the head and its data."""
    return number("vxSetDisplay", ctypes.c_uint32, _uint8, _uint8, _uint8, DisplayHead, ctypes.c_void_p)(pageId, zoneId, option, head, room(data, head.dataLength))


def vxSetDisplay4j(pageId: int, zoneId: int, option: int, head: DisplayHead, data: Buffer) -> int:
    """How a zone shows its content: the head and its data."""
    return number(
        "vxSetDisplay4j", ctypes.c_uint32, _uint8, _uint8, _uint8, ctypes.POINTER(DisplayHead), ctypes.c_void_p
    )(pageId, zoneId, option, head, room(data, head.dataLength))


def vxSetContentDisplayBase(pageId: int, zoneId: int, data: Buffer, length: int) -> int:
    """The content of a zone: the head and its data."""
    return number("vxSetContentDisplayBase", ctypes.c_uint32, _uint8, _uint8, ctypes.c_void_p, _uint8)(pageId, zoneId, room(data, length), length)


def vxSetContentDisplay(pageId: int, zoneId: int, head: ContentHead, data: Buffer) -> int:
    """The content of a zone: the head and its data."""
    return number("vxSetContentDisplay", ctypes.c_uint32, _uint8, _uint8, ContentHead, ctypes.c_void_p)(pageId, zoneId, head, room(data, head.dataLength))


def vxSetContentDisplay4j(pageId: int, zoneId: int, head: ContentHead, data: Buffer) -> int:
    """The content of a zone: the head and its data."""
    return number(
        "vxSetContentDisplay4j", ctypes.c_uint32, _uint8, _uint8, ctypes.POINTER(ContentHead), ctypes.c_void_p
    )(pageId, zoneId, head, room(data, head.dataLength))


def vxDivideSpeZone(pageId: int, head: SpeZoneHead, data: Buffer) -> int:
    """Divides a page into special zones: the head and its words."""
    return number("vxDivideSpeZone", ctypes.c_uint32, _uint8, SpeZoneHead, ctypes.c_void_p)(pageId, head, room(data, head.wordCount * 4))


def vxSetEnableMulitZone(enable: int) -> int:
    """Whether the face is divided at all, and how many pages there are; and both as they stand."""
    return number("vxSetEnableMulitZone", ctypes.c_uint32, _uint8)(enable)


def vxSetPageCount(count: int) -> int:
    """Whether the face is divided at all, and how many pages there are; and both as they stand."""
    return number("vxSetPageCount", ctypes.c_uint32, _uint8)(count)


def vxGetMulitZoneSetting(enable: ctypes.c_uint8, pageCount: ctypes.c_uint8) -> int:
    """Whether the face is divided at all, and how many pages there are; and both as they stand."""
    return number(
        "vxGetMulitZoneSetting", ctypes.c_uint32, ctypes.POINTER(ctypes.c_uint8), ctypes.POINTER(ctypes.c_uint8)
    )(enable, pageCount)
