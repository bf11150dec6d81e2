-- Shows the packets of LED variable-message signs in Wireshark and tshark: UDP and TCP port 9520, others by "Decode As".
-- Copy it into a folder of plugins (Help, About, Folders), or: tshark -X lua_script:vxsign.lua -r FILE
--
-- A reply belongs to the last request of its conversation with the same id, major and minor. Modbus RTU of roadside
-- devices stands on a port of its own, 9521, and is left to the dissector that Wireshark has for it.

-- from the commands
local names = {
    ["1,2"] = "read system file",
    ["1,3"] = "read font file",
    ["1,4"] = "read text",
    ["1,5"] = "read string",
    ["1,6"] = "read picture",
    ["1,7"] = "read array picture",
    ["1,8"] = "read file",
    ["1,9"] = "read play log",
    ["1,10"] = "read system settings",
    ["1,11"] = "read state",
    ["1,12"] = "read identity",
    ["1,15"] = "read update result",
    ["1,16"] = "read display style",
    ["1,17"] = "read file",
    ["1,18"] = "read system information",
    ["1,19"] = "read error log",
    ["1,21"] = "query database",
    ["1,22"] = "read brightness",
    ["1,26"] = "read statistics",
    ["1,27"] = "read board number",
    ["1,28"] = "read data flash size",
    ["1,29"] = "read data flash",
    ["1,31"] = "read file",
    ["1,48"] = "read update state",
    ["2,1"] = "write board",
    ["2,2"] = "write system file",
    ["2,3"] = "write font file",
    ["2,4"] = "write text",
    ["2,5"] = "write string",
    ["2,6"] = "write picture",
    ["2,7"] = "write array picture",
    ["2,8"] = "write file",
    ["2,9"] = "write urgent message",
    ["2,10"] = "write brightness block",
    ["2,11"] = "write identity",
    ["2,12"] = "write display style",
    ["2,13"] = "write file",
    ["2,14"] = "write checksum",
    ["2,19"] = "write data flash",
    ["2,48"] = "write update state",
    ["3,1"] = "connect test",
    ["3,2"] = "pattern test",
    ["3,3"] = "pattern test",
    ["3,4"] = "pattern test",
    ["3,5"] = "pattern test",
    ["3,6"] = "pattern test",
    ["3,7"] = "pattern test",
    ["3,8"] = "pattern test",
    ["3,9"] = "pattern test or stop test",
    ["3,10"] = "pattern test or crayon test",
    ["3,11"] = "pattern test or colour test",
    ["3,12"] = "pattern test",
    ["3,13"] = "pattern test or area test",
    ["3,14"] = "pattern test",
    ["3,15"] = "pattern test",
    ["3,16"] = "location test",
    ["3,48"] = "debug settings",
    ["3,49"] = "stability test",
    ["4,0"] = "reset",
    ["4,1"] = "black screen",
    ["4,2"] = "end black screen",
    ["4,3"] = "power off",
    ["4,4"] = "power on",
    ["4,5"] = "power state",
    ["4,6"] = "baud rate",
    ["4,7"] = "brightness",
    ["4,8"] = "set Ethernet check",
    ["4,9"] = "get Ethernet check",
    ["4,10"] = "set beacons",
    ["4,11"] = "get beacons",
    ["4,13"] = "commit status",
    ["4,19"] = "online or offline",
    ["4,20"] = "cold reset",
    ["4,21"] = "brightness of the sides",
    ["4,25"] = "reset to data flash",
    ["4,26"] = "set sign beacon",
    ["4,27"] = "get sign beacon",
    ["4,28"] = "set external equipment",
    ["4,29"] = "get external equipment",
    ["4,32"] = "generator",
    ["4,36"] = "set LCS",
    ["4,37"] = "get LCS",
    ["4,38"] = "voice",
    ["5,1"] = "read clock",
    ["5,2"] = "set controller's clock",
    ["5,3"] = "temperature and humidity",
    ["5,4"] = "set clock",
    ["5,5"] = "speed limit",
    ["6,1"] = "replay list",
    ["6,2"] = "replay file",
    ["6,3"] = "pause",
    ["6,4"] = "continue",
    ["6,5"] = "next",
    ["6,6"] = "priority play",
    ["6,7"] = "current file",
    ["6,8"] = "next file",
    ["6,9"] = "previous",
    ["6,10"] = "forward",
    ["6,11"] = "back",
    ["6,12"] = "next page",
    ["6,15"] = "sound",
    ["6,17"] = "begin timing",
    ["6,18"] = "stop timing",
    ["6,19"] = "pause timing",
    ["6,20"] = "continue timing",
    ["6,22"] = "clear radar log",
    ["6,23"] = "read radar log",
    ["6,24"] = "play list by number",
    ["6,25"] = "screenshot",
    ["6,26"] = "play sound file",
    ["6,27"] = "set volume",
    ["6,28"] = "get volume",
    ["6,29"] = "get list number",
    ["7,2"] = "format",
    ["7,3"] = "create folder",
    ["7,4"] = "rename",
    ["7,5"] = "move",
    ["7,6"] = "delete",
    ["7,7"] = "delete texts",
    ["7,8"] = "delete strings",
    ["7,9"] = "delete pictures",
    ["7,10"] = "delete array pictures",
    ["7,11"] = "list",
    ["7,12"] = "list part",
    ["7,13"] = "drive information",
    ["7,14"] = "file exists",
    ["7,15"] = "clear play files",
    ["7,16"] = "long list",
    ["8,1"] = "start ticker",
    ["8,2"] = "stop ticker",
    ["8,3"] = "ticker status",
    ["8,4"] = "upload to ticker",
    ["9,1"] = "start offline ticker",
    ["9,2"] = "stop offline ticker",
    ["10,1"] = "log in",
    ["10,2"] = "manual or log out",
    ["10,3"] = "change password",
    ["10,5"] = "controller's monitor",
    ["10,6"] = "controller's status",
    ["10,8"] = "lamp test JKB",
    ["10,9"] = "lamp test JKC",
    ["10,13"] = "flow",
    ["10,16"] = "temporary phase",
    ["10,17"] = "controller's real status",
    ["10,48"] = "server table",
    ["12,1"] = "read flash of a tile",
    ["12,2"] = "result of a tile task",
    ["12,4"] = "progress of a tile task",
    ["12,7"] = "status of a tile",
    ["12,9"] = "test a tile",
    ["12,11"] = "command to a tile",
    ["12,13"] = "poll update",
    ["12,15"] = "install a file in a tile",
    ["14,*"] = "tube data",
    ["16,1"] = "begin pixel check",
    ["16,3"] = "pixel check progress",
    ["17,1"] = "set FH",
    ["17,2"] = "get FH",
    ["28,1"] = "read file of a tile",
    ["28,2"] = "write file of a tile",
    ["28,3"] = "state of a tile task",
    ["28,4"] = "test a tile",
    ["28,5"] = "command to a tile",
    ["28,7"] = "command to the tile board",
    ["28,8"] = "calibration picture",
    ["28,9"] = "brightness of tiles",
    ["50,*"] = "calibration option",
    ["52,1"] = "VPU channel",
    ["52,2"] = "VPU mode",
    ["52,3"] = "VPU ratio",
    ["52,4"] = "VPU DVI window",
    ["52,5"] = "VPU video window",
    ["52,6"] = "VPU video argument",
    ["52,8"] = "VPU signal status",
    ["52,9"] = "VPU type",
    ["52,10"] = "VPU start line",
    ["52,11"] = "VPU colour temperature",
    ["52,12"] = "VPU brightness",
    ["52,13"] = "get VPU brightness",
    ["52,14"] = "VPU gamma",
    ["52,15"] = "VPU number of LDUs",
    ["52,16"] = "VPU place of an LDU",
    ["52,17"] = "VPU information or pixel mode",
    ["53,1"] = "MPU channel",
    ["53,6"] = "MPU video argument",
    ["53,23"] = "MPU outputs",
    ["53,27"] = "MPU EDID",
    ["53,28"] = "MPU phase",
    ["53,30"] = "MPU channel",
    ["53,31"] = "MPU window",
    ["53,254"] = "MPU progress",
    ["54,1"] = "divide zone",
    ["54,2"] = "read division",
    ["54,3"] = "set zone display",
    ["54,4"] = "set zone content",
    ["54,5"] = "enable zones",
    ["54,6"] = "set page count",
    ["54,7"] = "divide special zones",
    ["54,8"] = "read zone settings",
    ["96,48"] = "set collection",
    ["96,49"] = "read collection",
    ["96,64"] = "set outputs",
    ["96,65"] = "read inputs",
    ["96,96"] = "unlock Wi-Fi",
    ["96,97"] = "set Wi-Fi",
    ["96,98"] = "get Wi-Fi",
    ["96,99"] = "reset Wi-Fi",
    ["122,1"] = "read program property",
    ["122,2"] = "play program",
    ["122,5"] = "stop program",
    ["122,6"] = "set windows",
    ["122,7"] = "project information",
    ["122,8"] = "project progress",
    ["122,9"] = "read playing programs",
    ["122,10"] = "switch program",
    ["122,11"] = "switch program mode",
    ["122,12"] = "play emergency program",
    ["122,13"] = "stop emergency program",
    ["122,16"] = "project information",
    ["124,1"] = "read piece from a tile",
    ["124,2"] = "write piece to a tile",
    ["124,3"] = "direct command to a tile",
    ["124,4"] = "direct test of a tile",
}
local words = {
    [0x0000] = "OK",
    [0x0001] = "SNMP Read/Write Faild",
    [0x0002] = "Arguments Error",
    [0x0003] = "DLL NOT Init Error",
    [0x0004] = "Unknow Error!",
    [0x0005] = "Unknow Error!",
    [0x0100] = "DLL Call Error",
    [0x0101] = "DLL Call Error",
    [0x0102] = "File Format Error",
    [0x0103] = "Can't Modify Error",
    [0x0104] = "Task Not Exist Error",
    [0x0105] = "DLL NO THIS FUNCTION Error",
    [0x0106] = "Task Process Unkown Error",
    [0x0107] = "Sign not connected or NOT 3G connected",
    [0x0200] = "DB Open Error",
    [0x0201] = "DB CMD EXECUTE Error",
    [0x0202] = "DB Exception Error",
    [0x0C00] = "CtrlBoard Task In Buf!",
    [0x0C01] = "CtrlBoard Task Success!",
    [0x0C02] = "CtrlBoard Task Queue Error!",
    [0x0C03] = "CtrlBoard Task Processing!",
    [0x0C04] = "CtrlBoard Bus Error!",
    [0x0C05] = "CtrlBoard Retry Exceed!",
    [0x0C06] = "CtrlBoard Normal Error!",
    [0x0C07] = "CtrlBoard Task ID Error!",
    [0x0C08] = "CtrlBoard Brocast Error!",
    [0x0C09] = "CtrlBoard LDU Ctrl Error!",
    [0x0C11] = "CtrlBoard LDU Ctrl Addr Error!",
    [0x0C12] = "CtrlBoard TWI Error!",
    [0x0C13] = "CtrlBoard PixelPro Error!",
    [0x1101] = "Oversize when reading!",
    [0x1102] = "The Address Invalid!",
    [0x1F01] = "Update firmware program Failed!",
    [0x1F02] = "Updating...",
    [0x1F03] = "No update operation!",
    [0x2000] = "Memory allocation Fail!",
    [0x2101] = "Data size exceeds 320K when writing a file!",
    [0x2102] = "Not enough space!",
    [0x2103] = "Not enough space in driver C !",
    [0x2104] = "Not enough space in driver D !!",
    [0x2105] = "Not enough space in driver E !",
    [0x2106] = "Not enough space in driver F !",
    [0x2107] = "Not enough space in driver G !",
    [0x2901] = "Data size exceeds 1024 bytes when writing an emergency message!",
    [0x36E1] = "The PageID is invalid!",
    [0x36E2] = "The Page has not been configured!",
    [0x36E3] = "The PageCount must be less then 13 !",
    [0x36E4] = "The ZoneID is invalid!",
    [0x36E5] = "The Zone has not been configured!",
    [0x36E6] = "The PageCount is wrong!, and must be less then 21 !",
    [0x3A01] = "Not Support the Command!",
    [0x4B4F] = "Packet Process OK",
    [0x5001] = "Open Com Error!",
    [0x5002] = "TimeOut to Connenct for TCP!",
    [0x5003] = "Failure in Operation!",
    [0x5004] = "Inconsistent Synchronization code!",
    [0x5005] = "Inconsistent Source Address!",
    [0x5006] = "Inconsistent Destination Address!",
    [0x5007] = "Inconsistent Pack ID!",
    [0x5008] = "Inconsistent Major category!",
    [0x5009] = "Inconsistent Minor category!",
    [0x5010] = "Inconsistent Sum check!",
    [0x5011] = "Operation Abort!",
    [0x5012] = "Play List is not exists!",
    [0x5013] = "Unexpected file format!",
    [0x5100] = "Communication Error!",
    [0x5101] = "Failed open PC file!",
    [0x5102] = "PC File is empty!",
    [0x5201] = "Time set unsuccessful!",
    [0x5245] = "Packet Process Error",
    [0x6701] = "No current display file!",
    [0x6702] = "Failure in opening current display file!",
    [0x6703] = "Current display file oversized and can not be read. Please use extended reading command!",
    [0x7201] = "Format failure!",
    [0x7301] = "Failure in creating a folder!",
    [0x7401] = "Failure in renaming a file!",
    [0x7402] = "Incorrect path in renaming!",
    [0x7501] = "Failure in moving a file!",
    [0x7601] = "Failure in deleting a file!",
    [0x7B01] = "Failure in opening a file!",
    [0x7D01] = "Failure in reading disk information",
    [0x7E01] = "The file not exist!",
    [0x8301] = "Buffer 1 and Buffer 2 displaying. Buffer 3 ready to receive data!",
    [0x8302] = "Buffer 2 and Buffer 3 displaying. Buffer 1 ready to receive data!",
    [0x8303] = "Buffer 3 and Buffer 2 displaying. Buffer 1 ready to receive data!",
    [0x8305] = "System not in the unlimited connection display status!",
    [0x8306] = "Receiving Buffer full!",
    [0x8307] = "Incorrect data format!",
    [0x9000] = "Process OK",
    [0x9001] = "Head error of com synchronization!",
    [0x9002] = "Sum check error!",
    [0x9003] = "Address error!",
    [0x9004] = "Major category invalid!",
    [0x9005] = "Minor category invalid!",
    [0x9006] = "Incorrect data packet length!",
    [0x9008] = "File does not exist!",
    [0x9009] = "End of file!",
    [0x9010] = "Failure in opening the file!",
    [0x9011] = "Not support this command",
    [0x9012] = "File write-in failure!",
    [0x9013] = "The packet size is wrong!",
    [0x9014] = "The Packet ID is wrong!",
    [0x9015] = "Delete the File failed!",
    [0x9030] = "Please login first",
    [0x9031] = "Password incorrect!",
    [0x9032] = "User name incorrect!",
    [0x9033] = "Original password incorrect!",
    [0x9035] = "The display is being used by others!",
    [0x9036] = "User not exist or permission denied",
    [0xAA01] = "The Key for Password is wrong!",
    [0xAA02] = "Data is available only when the display is starting up!",
    [0xB101] = "FTP Error!",
    [0xB102] = "HTTP Error!",
    [0xC102] = "File Lock By Other User!",
    [0xC103] = "Please Lock File First!",
    [0xC320] = "File Sync DB Error!",
    [0xC330] = "User Error or Password Error!",
    [0xC340] = "Add Task Error!",
    [0xFFFF] = "CtrlBoard Task Queue Full Error!",
}
-- end of what is from the commands

-- Records of the common commands, a list of "name size" for each: a size in bytes, "text" for the rest up to its NUL, "-" for
-- bytes that mean nothing. "q" is the payload of a request, "r" that of a reply, "x" the extended part of a request.
local records = {
    ["1,2"] = { q = "file 12, chunkSize 2, number 2" },
    ["1,3"] = { q = "file 12, chunkSize 2, number 2" },
    ["1,4"] = { q = "drive 1, - 3, file 12, chunkSize 2, number 2" },
    ["1,5"] = { q = "drive 1, - 3, file 12, chunkSize 2, number 2" },
    ["1,6"] = { q = "drive 1, - 3, file 12, chunkSize 2, number 2" },
    ["1,7"] = { q = "drive 1, - 3, file 12, chunkSize 2, number 2" },
    ["1,8"] = { q = "chunkSize 2, number 2, path text" },
    ["1,9"] = { q = "chunkSize 2, number 2" },
    ["1,17"] = { q = "chunkSize 2, - 2, number 4, path text" },
    ["1,21"] = { q = "database 2", r = "rows 2", x = "sql text" },
    ["1,26"] = { q = "selector 1" },
    ["1,27"] = { r = "board 4, ports 1" },
    ["1,29"] = { q = "chunkSize 2, - 2, number 4" },
    ["1,31"] = { q = "chunkSize 2, - 2, number 4, path text" },
    ["2,1"] = { q = "offset 4" },
    ["2,2"] = { q = "file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,3"] = { q = "file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,4"] = { q = "drive 1, - 1, file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,5"] = { q = "drive 1, - 1, file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,6"] = { q = "drive 1, - 1, file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,7"] = { q = "drive 1, - 1, file 12, fileSize 4, chunkSize 2, packets 2, number 2" },
    ["2,8"] = { q = "fileSize 4, chunkSize 2, packets 2, number 2, path text" },
    ["2,13"] = { q = "fileSize 4, chunkSize 2, packets 4, number 4, path text" },
    ["2,14"] = { q = "file 32, fileSize 4, checksum 2" },
    ["2,19"] = { q = "fileSize 4, chunkSize 2, packets 4, number 4" },
    ["3,1"] = { r = "width 2, height 2, count 4" },
    ["4,5"] = { r = "ordered 1, power 1" },
    ["4,7"] = { q = "front 1, back 1" },
    ["10,1"] = { q = "user 14, password 6" },
    ["10,3"] = { q = "user 14, password 6, newPassword 8" },
    ["54,1"] = { q = "page 1, zone 1" },
    ["54,3"] = { q = "page 1, zone 1, option 1" },
    ["54,4"] = { q = "page 1, zone 1" },
}

local numbers = "chunkSize number database rows selector board ports offset fileSize packets checksum width height count ordered "
    .. "power front back page zone option"
local texts = "file drive path sql user password newPassword"

local headerSize = 16
local defaultPort = 9520
local modbusPort = 9521
local processOk = 0x9000 -- a code that is no refusal
local proto = Proto("vxsign", "LED variable-message sign")

local f = {
    sync = ProtoField.uint8("vxsign.sync", "Kind of packet", base.HEX),
    sum = ProtoField.uint16("vxsign.sum", "Checksum", base.HEX),
    extended_length = ProtoField.uint16("vxsign.extended_length", "Length of the extended part"),
    source = ProtoField.uint16("vxsign.source", "Source address", base.HEX),
    destination = ProtoField.uint16("vxsign.destination", "Destination address", base.HEX),
    id = ProtoField.uint16("vxsign.id", "Packet id"),
    major = ProtoField.uint8("vxsign.major", "Major"),
    minor = ProtoField.uint8("vxsign.minor", "Minor"),
    name = ProtoField.string("vxsign.name", "Command"),
    words = ProtoField.uint8("vxsign.words", "Length of the payload in words of 4 bytes"),
    status = ProtoField.uint8("vxsign.status", "Status", base.DEC, { [0] = "done", [1] = "code", [2] = "like a garbled reply" }),
    code = ProtoField.uint32("vxsign.code", "Code", base.HEX, words),
    payload = ProtoField.bytes("vxsign.payload", "Payload"),
    extended = ProtoField.bytes("vxsign.extended", "Extended part"),
    request = ProtoField.framenum("vxsign.request_in", "Request in", base.NONE, frametype.REQUEST),
    reply = ProtoField.framenum("vxsign.reply_in", "Reply in", base.NONE, frametype.RESPONSE),
    time = ProtoField.relative_time("vxsign.time", "Time since the request"),
}
for name in numbers:gmatch("%a+") do f["number_" .. name] = ProtoField.uint32("vxsign." .. name, name) end
for name in texts:gmatch("%a+") do f["text_" .. name] = ProtoField.string("vxsign." .. name, name) end
proto.fields = f

local bad_sum = ProtoExpert.new("vxsign.bad_sum", "Bad checksum", expert.group.CHECKSUM, expert.severity.ERROR)
local refused = ProtoExpert.new("vxsign.refused", "The sign refuses", expert.group.RESPONSE_CODE, expert.severity.WARN)
local unknown = ProtoExpert.new("vxsign.unknown", "No command of a sign that is known here", expert.group.UNDECODED, expert.severity.NOTE)
local noise = ProtoExpert.new("vxsign.noise", "Bytes that belong to no packet", expert.group.PROTOCOL, expert.severity.WARN)
proto.experts = { bad_sum, refused, unknown, noise }

-- The second byte: whether it is a reply, whether the checksum is the CRC.
local kinds = {
    [0xA7] = {}, [0xA3] = { crc = true }, [0xB1] = { crc = true, tile = true },
    [0xA8] = { reply = true }, [0xA4] = { reply = true, crc = true }, [0xB2] = { reply = true, crc = true, tile = true },
}

local function kind_at(tvb, at)
    return tvb:len() >= at + 2 and tvb(at, 1):uint() == 0x55 and kinds[tvb(at + 1, 1):uint()] or nil
end

local function length_at(tvb, at)
    return headerSize + 4 * tvb(at + 14, 1):uint() + tvb(at + 4, 2):le_uint()
end

local function crc_of(bytes)
    local crc = 0xFFFF
    for i = 0, bytes:len() - 1 do
        crc = bit.bxor(crc, bytes:get_index(i))
        for _ = 1, 8 do
            crc = bit.band(crc, 1) ~= 0 and bit.bxor(bit.rshift(crc, 1), 0x8408) or bit.rshift(crc, 1)
        end
    end
    return bit.band(bit.bnot(crc), 0xFFFF)
end

local function sum_of(bytes)
    local sum = 0
    for i = 0, bytes:len() - 1 do sum = sum + bytes:get_index(i) end
    return bit.band(sum, 0xFFFF)
end

-- Of the two only the CRC is stored high byte first.
local function is_good(kind, packet)
    local bytes = packet(4):bytes()
    if kind.crc then return packet(2, 2):uint() == crc_of(bytes) end
    return packet(2, 2):le_uint() == sum_of(bytes)
end

local function command_of(kind, packet)
    if kind.tile then return "tile: " .. packet(13, 1):uint() end
    local major, minor = packet(12, 1):uint(), packet(13, 1):uint()
    return names[major .. "," .. minor] or names[major .. ",*"]
end

local function add_record(tree, record, part)
    local at = 0
    for name, size in (record or ""):gmatch("([%a-]+) (%w+)") do
        local rest = part:len() - at
        local bytes = size == "text" and rest or tonumber(size)
        if bytes > rest or rest == 0 then return end
        local piece = part(at, bytes)
        if f["text_" .. name] then
            tree:add(f["text_" .. name], piece, piece:string():match("^[^\0]*"))
        elseif f["number_" .. name] then
            tree:add_le(f["number_" .. name], piece)
        end
        at = at + bytes
    end
end

-- What waits for its reply, by conversation; and for each packet that has been looked at, the other one.
local waiting, pairs_of = {}, {}
function proto.init()
    waiting, pairs_of = {}, {}
end

local function key_of(pinfo, kind, packet)
    local here, there = tostring(pinfo.src) .. ":" .. pinfo.src_port, tostring(pinfo.dst) .. ":" .. pinfo.dst_port
    if kind.reply then here, there = there, here end
    return table.concat({ here, there, packet(10, 4):bytes():tohex() }, " ")
end

local function match(pinfo, kind, packet)
    local key = key_of(pinfo, kind, packet)
    local own = pinfo.number .. " " .. key
    if not pinfo.visited then
        if not kind.reply then
            waiting[key] = { number = pinfo.number, time = pinfo.abs_ts, key = own }
        elseif waiting[key] then
            local request = waiting[key]
            pairs_of[own] = request
            pairs_of[request.key] = { number = pinfo.number }
            waiting[key] = nil
        end
    end
    return pairs_of[own]
end

local function add_header(tree, kind, packet)
    tree:add(f.sync, packet(1, 1)):append_text(kind.reply and " reply" or " request")
    local sum = tree:add_le(f.sum, packet(2, 2))
    local good = is_good(kind, packet)
    sum:append_text(good and (kind.crc and " CRC" or " sum") or " wrong")
    if not good then sum:add_proto_expert_info(bad_sum) end
    for at, field in pairs({ [4] = f.extended_length, [6] = f.source, [8] = f.destination, [10] = f.id }) do
        tree:add_le(field, packet(at, 2))
    end
    tree:add(f.major, packet(12, 1))
    tree:add(f.minor, packet(13, 1))
    tree:add(f.words, packet(14, 1))
    if kind.reply then tree:add(f.status, packet(15, 1)) end
    return good
end

local function add_match(tree, pinfo, kind, packet)
    local other = match(pinfo, kind, packet)
    if not other then return end
    tree:add(kind.reply and f.request or f.reply, other.number):set_generated()
    if other.time then
        local passed = pinfo.abs_ts - other.time
        tree:add(f.time, NSTime.new(math.floor(passed), math.floor(passed % 1 * 1e9 + 0.5))):set_generated()
    end
end

-- A refusal has its code ahead of anything else.
local function add_code(tree, pinfo, packet)
    if packet(15, 1):uint() ~= 1 or packet:len() < headerSize + 4 then return end
    local code = packet(headerSize, 4):le_uint()
    local item = tree:add_le(f.code, packet(headerSize, 4))
    if code ~= processOk then item:add_proto_expert_info(refused) end
    pinfo.cols.info:append(string.format(" 0x%04X %s", code, words[code] or ""))
end

local function add_parts(tree, kind, packet)
    local size = 4 * packet(14, 1):uint()
    local record = not kind.tile and records[packet(12, 1):uint() .. "," .. packet(13, 1):uint()] or {}
    if size > 0 then
        local branch = tree:add(f.payload, packet(headerSize, size))
        if not kind.reply then
            add_record(branch, record.q, packet(headerSize, size))
        elseif packet(15, 1):uint() == 0 then
            add_record(branch, record.r, packet(headerSize, size))
        end
    end
    if packet:len() > headerSize + size then
        local branch = tree:add(f.extended, packet(headerSize + size))
        if not kind.reply then add_record(branch, record.x, packet(headerSize + size)) end
    end
end

local function dissect_packet(tvb, pinfo, root)
    local packet = tvb()
    local kind = kind_at(tvb, 0)
    local name = command_of(kind, packet)
    local title = string.format("%s%d, %d %s", kind.reply and "reply " or "", packet(12, 1):uint(), packet(13, 1):uint(), name or "?")
    pinfo.cols.info:append((tostring(pinfo.cols.info) ~= "" and ", " or "") .. title)
    local tree = root:add(proto, packet, "Sign: " .. title)
    local branch = tree:add(f.name, name or "")
    branch:set_generated()
    if not name then branch:add_proto_expert_info(unknown) end
    if not add_header(tree, kind, packet) then pinfo.cols.info:append(" [bad checksum]") end
    add_match(tree, pinfo, kind, packet)
    if kind.reply then add_code(tree, pinfo, packet) end
    add_parts(tree, kind, packet)
    return tvb:len()
end

-- Where the next packet may begin; what lies ahead of it is noise.
local function next_start(tvb, from)
    for at = from, tvb:len() - 1 do
        if kind_at(tvb, at) or (at == tvb:len() - 1 and tvb(at, 1):uint() == 0x55) then return at end
    end
    return tvb:len()
end

-- The packets of a datagram or of a piece of a stream; of the last one the rest may be missing.
function proto.dissector(tvb, pinfo, root)
    if tvb:len() == 0 then return 0 end
    pinfo.cols.protocol = "VXSIGN"
    pinfo.cols.info = ""
    local at = 0
    while at < tvb:len() do
        local start = next_start(tvb, at)
        if start > at then
            root:add(proto, tvb(at, start - at)):add_proto_expert_info(noise)
            pinfo.cols.info:append(" [noise]")
        end
        at = start
        if at == tvb:len() then break end
        local left = tvb:len() - at
        local wanted = left >= headerSize and length_at(tvb, at) or headerSize
        if left < wanted then
            if not pinfo.can_desegment or pinfo.can_desegment == 0 then
                root:add(proto, tvb(at)):add_proto_expert_info(noise)
                return tvb:len()
            end
            pinfo.desegment_offset = at
            pinfo.desegment_len = left >= headerSize and wanted - left or DESEGMENT_ONE_MORE_SEGMENT
            return tvb:len()
        end
        dissect_packet(tvb(at, wanted):tvb(), pinfo, root)
        at = at + wanted
    end
    return tvb:len()
end

local modbus = Dissector.get("mbrtu")
for _, way in ipairs({ "tcp.port", "udp.port" }) do
    DissectorTable.get(way):add(defaultPort, proto)
    DissectorTable.get(way):add_for_decode_as(proto)
    if modbus then DissectorTable.get(way):add(modbusPort, modbus) end
end

-- Refusals and damage in the list of packets.
if gui_enabled() then
    set_color_filter_slot(1, "vxsign.bad_sum || vxsign.noise")
    set_color_filter_slot(2, "vxsign.code && vxsign.code != 0x9000")
    set_color_filter_slot(5, "vxsign.status == 0")
end
