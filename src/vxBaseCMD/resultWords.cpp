// Every result word with its text. Applications show these texts and match on them: they stay as they are, to the
// letter.
#include <vxsign/result.h>

#include <algorithm>
#include <iterator>

namespace {

struct ResultWord
{
    std::uint32_t code;
    const char* text;
};

// Ascending, for the search below.
constexpr ResultWord kResultWords[] = {
    {0x0000, "OK"},
    {0x0001, "SNMP Read/Write Faild"},
    {0x0002, "Arguments Error"},
    {0x0003, "DLL NOT Init Error"},
    {0x0100, "DLL Call Error"},
    {0x0101, "DLL Call Error"},
    {0x0102, "File Format Error"},
    {0x0103, "Can't Modify Error"},
    {0x0104, "Task Not Exist Error"},
    {0x0105, "DLL NO THIS FUNCTION Error"},
    {0x0106, "Task Process Unkown Error"},
    {0x0107, "Sign not connected or NOT 3G connected"},
    {0x0200, "DB Open Error"},
    {0x0201, "DB CMD EXECUTE Error"},
    {0x0202, "DB Exception Error"},
    {0x0c00, "CtrlBoard Task In Buf!"},
    {0x0c01, "CtrlBoard Task Success!"},
    {0x0c02, "CtrlBoard Task Queue Error!"},
    {0x0c03, "CtrlBoard Task Processing!"},
    {0x0c04, "CtrlBoard Bus Error!"},
    {0x0c05, "CtrlBoard Retry Exceed!"},
    {0x0c06, "CtrlBoard Normal Error!"},
    {0x0c07, "CtrlBoard Task ID Error!"},
    {0x0c08, "CtrlBoard Brocast Error!"},
    {0x0c09, "CtrlBoard LDU Ctrl Error!"},
    {0x0c11, "CtrlBoard LDU Ctrl Addr Error!"},
    {0x0c12, "CtrlBoard TWI Error!"},
    {0x0c13, "CtrlBoard PixelPro Error!"},
    {0x1101, "Oversize when reading!"},
    {0x1102, "The Address Invalid!"},
    {0x1f01, "Update firmware program Failed!"},
    {0x1f02, "Updating..."},
    {0x1f03, "No update operation!"},
    {0x2000, "Memory allocation Fail!"},
    {0x2101, "Data size exceeds 320K when writing a file!"},
    {0x2102, "Not enough space!"},
    {0x2103, "Not enough space in driver C !"},
    {0x2104, "Not enough space in driver D !!"},
    {0x2105, "Not enough space in driver E !"},
    {0x2106, "Not enough space in driver F !"},
    {0x2107, "Not enough space in driver G !"},
    {0x2901, "Data size exceeds 1024 bytes when writing an emergency message!"},
    {0x36e1, "The PageID is invalid!"},
    {0x36e2, "The Page has not been configured!"},
    {0x36e3, "The PageCount must be less then 13 !"},
    {0x36e4, "The ZoneID is invalid!"},
    {0x36e5, "The Zone has not been configured!"},
    {0x36e6, "The PageCount is wrong!, and must be less then 21 !"},
    {0x3a01, "Not Support the Command!"},
    {0x4b4f, "Packet Process OK"},
    {0x5001, "Open Com Error!"},
    {0x5002, "TimeOut to Connenct for TCP!"},
    {0x5003, "Failure in Operation!"},
    {0x5004, "Inconsistent Synchronization code!"},
    {0x5005, "Inconsistent Source Address!"},
    {0x5006, "Inconsistent Destination Address!"},
    {0x5007, "Inconsistent Pack ID!"},
    {0x5008, "Inconsistent Major category!"},
    {0x5009, "Inconsistent Minor category!"},
    {0x5010, "Inconsistent Sum check!"},
    {0x5011, "Operation Abort!"},
    {0x5012, "Play List is not exists!"},
    {0x5013, "Unexpected file format!"},
    {0x5100, "Communication Error!"},
    {0x5101, "Failed open PC file!"},
    {0x5102, "PC File is empty!"},
    {0x5201, "Time set unsuccessful!"},
    {0x5245, "Packet Process Error"},
    {0x6701, "No current display file!"},
    {0x6702, "Failure in opening current display file!"},
    {0x6703, "Current display file oversized and can not be read. Please use extended reading command!"},
    {0x7201, "Format failure!"},
    {0x7301, "Failure in creating a folder!"},
    {0x7401, "Failure in renaming a file!"},
    {0x7402, "Incorrect path in renaming!"},
    {0x7501, "Failure in moving a file!"},
    {0x7601, "Failure in deleting a file!"},
    {0x7b01, "Failure in opening a file!"},
    {0x7d01, "Failure in reading disk information"},
    {0x7e01, "The file not exist!"},
    {0x8301, "Buffer 1 and Buffer 2 displaying. Buffer 3 ready to receive data!"},
    {0x8302, "Buffer 2 and Buffer 3 displaying. Buffer 1 ready to receive data!"},
    {0x8303, "Buffer 3 and Buffer 2 displaying. Buffer 1 ready to receive data!"},
    {0x8305, "System not in the unlimited connection display status!"},
    {0x8306, "Receiving Buffer full!"},
    {0x8307, "Incorrect data format!"},
    {0x9000, "Process OK"},
    {0x9001, "Head error of com synchronization!"},
    {0x9002, "Sum check error!"},
    {0x9003, "Address error!"},
    {0x9004, "Major category invalid!"},
    {0x9005, "Minor category invalid!"},
    {0x9006, "Incorrect data packet length!"},
    {0x9008, "File does not exist!"},
    {0x9009, "End of file!"},
    {0x9010, "Failure in opening the file!"},
    {0x9011, "Not support this command"},
    {0x9012, "File write-in failure!"},
    {0x9013, "The packet size is wrong!"},
    {0x9014, "The Packet ID is wrong!"},
    {0x9015, "Delete the File failed!"},
    {0x9030, "Please login first"},
    {0x9031, "Password incorrect!"},
    {0x9032, "User name incorrect!"},
    {0x9033, "Original password incorrect!"},
    {0x9035, "The display is being used by others!"},
    {0x9036, "User not exist or permission denied"},
    {0xaa01, "The Key for Password is wrong!"},
    {0xaa02, "Data is available only when the display is starting up!"},
    {0xb101, "FTP Error!"},
    {0xb102, "HTTP Error!"},
    {0xc102, "File Lock By Other User!"},
    {0xc103, "Please Lock File First!"},
    {0xc320, "File Sync DB Error!"},
    {0xc330, "User Error or Password Error!"},
    {0xc340, "Add Task Error!"},
    {0xffff, "CtrlBoard Task Queue Full Error!"},
};

constexpr bool Ascending()
{
    for (std::size_t i = 1; i < std::size(kResultWords); ++i)
        if (kResultWords[i - 1].code >= kResultWords[i].code)
            return false;
    return true;
}
static_assert(Ascending());

} // namespace

const char* vxErrorDesc(std::uint32_t code)
{
    const auto* const end = std::end(kResultWords);
    const auto* const word = std::lower_bound(std::begin(kResultWords), end, code,
                                              [](const ResultWord& w, std::uint32_t c) { return w.code < c; });
    return word != end && word->code == code ? word->text : "Unknow Error!";
}
