// picture: a picture file on the face at once.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/showOptions.h"
#include "vxctl/show/showing.h"
#include "vxctl/show/wantedFace.h"

#ifdef VXCTL_HAS_PREVIEW
#include "vxctl/show/pictures.h"
#endif

#include <vxsign/content.h>

#include <fstream>
#include <vector>

namespace vxctl {

namespace {

using Bytes = std::vector<std::uint8_t>;

// Makes a message file of a picture file.
void Wrap(const Bytes& picture, const std::string& local, const Args& args, std::uint32_t staySeconds)
{
    const std::string source = local + ".bmp";
    std::ofstream file(source, std::ios::binary);
    file.write(reinterpret_cast<const char*>(picture.data()), static_cast<std::streamsize>(picture.size()));
    file.close();
    Check(vxShowBmpToNmg(source.c_str(), local.c_str(), ParseMode(args.Text("--mode")), staySeconds));
}

std::uint32_t ShowBytes(Session& session, const Args& args, const Bytes& picture)
{
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "message";
    Wrap(picture, local, args, args.Number("--stay"));
    ShowMessage(session, args, local, "PMSG.Nmg", true);
    return VX_OK;
}

#ifdef VXCTL_HAS_PREVIEW

std::uint32_t ShowFrames(Session& session, const Args& args, const std::vector<Frame>& frames)
{
    const TemporaryFolder folder;
    std::vector<std::string> files;
    for (const Frame& frame : frames) {
        files.push_back(folder.Path() + "FRAME" + std::to_string(100 + files.size()) + ".NMG");
        Wrap(EncodeBmp(frame.picture), files.back(), args, SecondsOf(frame));
    }
    ShowList(session, args, files, Parts::kAll);
    return VX_OK;
}

std::uint32_t ShowFitted(Session& session, const Args& args, const Bytes& bytes)
{
    std::vector<Frame> frames;
    try {
        frames = DecodeFrames(bytes);
    } catch (const UsageError& error) {
        throw UsageError(args.Text("FILE") + " is " + error.what() + "; --raw sends it as it is");
    }
    const FaceSize face = KnownFaceOfSign(session, args).size;
    const bool isLarger = frames[0].picture.Width() > face.width || frames[0].picture.Height() > face.height;
    for (Frame& frame : frames)
        frame.picture = Fit(frame.picture, face.width, face.height, args.Text("--fit"));
    session.report.Put("width", face.width);
    session.report.Put("height", face.height);
    session.report.Put("frames", frames.size());
    session.report.Put("cut", isLarger && args.Text("--fit") == "none");
    return frames.size() == 1 ? ShowBytes(session, args, EncodeBmp(frames[0].picture))
                              : ShowFrames(session, args, frames);
}

#else

std::uint32_t ShowFitted(Session&, const Args&, const Bytes&)
{
    throw UsageError("this vxctl was built without pictures: --raw sends the file as it is");
}

#endif

std::uint32_t ShowPicture(Session& session, const Args& args)
{
    const Bytes bytes = ReadWhole(args.Text("FILE"));
    return args.Has("--raw") ? ShowBytes(session, args, bytes) : ShowFitted(session, args, bytes);
}

const Command kCommands[] = {
    {
        .name = "picture",
        .help = "Show a picture file",
        .details =
            R"(A BMP, PNG, JPEG or GIF file, told by its contents, is brought to the size of the face, which the sign tells unless
--size does, and goes over as a BMP. --fit contain shows all of it, cover fills the face and cuts what is left over,
stretch fills it and distorts, none leaves the picture as large as it is. The frames of a GIF become a list, each with its
own time in whole seconds. Anything else is refused, unless --raw sends it unchanged to a sign that knows it.)",
        .examples = R"(vxctl picture --stay 20 logo.bmp
vxctl picture --fit cover photo.jpeg)",
        .arguments = {ReadFile("FILE", "the picture"), kMode, kStay, kDrive, kFit,
                      Of(kFaceSize, "--size", "pixels of the face; otherwise the sign is asked"),
                      Flag("--raw", "send the file unchanged").Excludes("--fit --size")},
        .signs = Signs::kMany,
        .run = ShowPicture,
    },
};

} // namespace

const CommandTable kPictureCommands{"Show", kCommands};

} // namespace vxctl
