// message: a text as a file that signs and play lists take.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/lookAhead.h"
#include "vxctl/show/showOptions.h"

namespace vxctl {

namespace {

std::uint32_t MakeMessage(Session& session, const Args& args)
{
    const Message message = MessageOf(session, args);
    if (args.Has("--size"))
        CheckFit(session, args, message, ParseFaceSize(args.Text("--size")));
    const LocalTarget target(args.Text("--out"), "message.nmg");
    WriteMessage(message, target.Temporary().string());
    target.Keep();
    session.report.Put("local", target.Final().string());
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "message",
        .help = "Make a message file of a text, without a sign",
        .details =
            R"(The file shows on a sign what "vxctl show" would: "vxctl files" and "vxctl put" send it, "vxctl playlist add" takes it into a
play list. With --size it says when the text does not fit such a face.)",
        .examples = R"(vxctl message "HELLO 42" -o hello.nmg
vxctl message --markup "{red}Lane 2{line}closed{page}Use M4" --stay 3 -o lane2.nmg
vxctl message "ROAD WORKS" --size 64x32 --must-fit -o works.nmg)",
        .arguments = {kMessageText, WriteFile("-o,--out", "the message file").Required(), kMarkup, kEncoding, kFont,
                      kColour, kMode, kStay, kAllowEmpty, Of(kFaceSize, "--size", "pixels of the face that it is for"),
                      kMustFit.Needs("--size")},
        .line = Line::kNone,
        .run = MakeMessage,
    },
};

} // namespace

const CommandTable kMessageCommands{"Show", kCommands};

} // namespace vxctl
