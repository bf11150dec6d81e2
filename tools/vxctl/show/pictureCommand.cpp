// picture: a picture file on the face at once.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/tables.h"
#include "vxctl/show/showOptions.h"
#include "vxctl/show/wantedFace.h"

#ifdef VXCTL_HAS_PREVIEW
#include "vxctl/show/pictures.h"
#endif

#include <vxsign/content.h>
#include <vxsign/quickshow.h>

#include <algorithm>
#include <fstream>
#include <vector>

namespace vxctl {

namespace {

std::uint32_t ShowBytes(Session& session, const Args& args, const std::vector<std::uint8_t>& bytes)
{
    const SignUrl sign = session.Sign();
    TakeTries(session, 3);
    return vxShowPicEx(bytes.data(), static_cast<std::uint32_t>(bytes.size()), ParseMode(args.Text("--mode")),
                       args.Number("--stay"), sign.host.c_str(), sign.port, ToE(args), sign.kind,
                       sign.serialName.c_str(), sign.baudRate, session.options.destination);
}

#ifdef VXCTL_HAS_PREVIEW

void WriteFrame(const Frame& frame, const std::string& local, const Args& args)
{
    const std::string picture = local + ".bmp";
    const std::vector<std::uint8_t> bytes = EncodeBmp(frame.picture);
    std::ofstream file(picture, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    Check(vxShowBmpToNmg(picture.c_str(), local.c_str(), ParseMode(args.Text("--mode")), SecondsOf(frame)));
}

std::uint32_t ShowFrames(Session& session, const Args& args, const std::vector<Frame>& frames)
{
    const TemporaryFolder folder;
    std::vector<std::string> files;
    for (const Frame& frame : frames) {
        files.push_back(folder.Path() + "FRAME" + std::to_string(100 + files.size()) + ".NMG");
        WriteFrame(frame, files.back(), args);
    }
    std::vector<const char*> paths;
    std::ranges::transform(files, std::back_inserter(paths), &std::string::c_str);
    const SignUrl sign = session.Sign();
    TakeTries(session, 6);
    return vxShowFilesSpe(paths.data(), static_cast<std::uint32_t>(paths.size()),
                          static_cast<int>(ParseMode(args.Text("--mode"))), args.Number("--stay"), sign.host.c_str(),
                          sign.port, ToE(args), sign.kind, sign.serialName.c_str(), sign.baudRate,
                          session.options.destination, 0);
}

std::uint32_t ShowFitted(Session& session, const Args& args, const std::vector<std::uint8_t>& bytes)
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

std::uint32_t ShowFitted(Session&, const Args&, const std::vector<std::uint8_t>&)
{
    throw UsageError("this vxctl was built without pictures: --raw sends the file as it is");
}

#endif

std::uint32_t ShowPicture(Session& session, const Args& args)
{
    const std::vector<std::uint8_t> bytes = ReadWhole(args.Text("FILE"));
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
own time in whole seconds. Anything else is refused, unless --raw sends it unchanged to a sign that knows it.
--timeout, --retries and --chunk do not apply: 3 tries of 3000 ms, packets of 768 bytes.)",
        .examples = R"(vxctl picture --stay 20 logo.bmp
vxctl picture --fit cover photo.jpeg)",
        .arguments = {ReadFile("FILE", "the picture"), kMode, kStay, kDrive, kFit,
                      Of(kFaceSize, "--size", "pixels of the face; otherwise the sign is asked"),
                      Flag("--raw", "send the file unchanged").Excludes("--fit --size")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = ShowPicture,
    },
};

} // namespace

const CommandTable kPictureCommands{"Show", kCommands};

} // namespace vxctl
