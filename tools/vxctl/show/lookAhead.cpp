// Looks at messages before they go.
#include "vxctl/show/lookAhead.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/localFiles.h"

#ifdef VXCTL_HAS_PREVIEW
#include "vxctl/show/preview.h"
#endif

namespace vxctl {

#ifdef VXCTL_HAS_PREVIEW

void CheckFit(Session& session, const Args& args, const Message& message, const FaceSize& face)
{
    ReportFit(session, args, FileOf(message), face);
}

void LookAhead(Session& session, const Args& args, const Message& message)
{
    const bool mustKnow = args.Has("--must-fit") || args.Has("--preview");
    const WantedFace face = mustKnow ? KnownFaceOfSign(session, args) : FaceOfSign(session, args);
    if (!face.IsKnown())
        return;
    ReportFace(session.report, face);
    const std::vector<std::uint8_t> file = FileOf(message);
    if (args.Has("--preview")) {
        Preview preview(face.size, EncodingFor(session, args));
        preview.AddFile(file);
        preview.Print(session.report);
    }
    ReportFit(session, args, file, face.size);
}

#else

void CheckFit(Session& /*session*/, const Args& args, const Message& /*message*/, const FaceSize& /*face*/)
{
    if (args.Has("--must-fit"))
        throw UsageError("this vxctl was built without a face: it knows nothing that fits");
}

void LookAhead(Session& session, const Args& args, const Message& message)
{
    if (args.Has("--preview"))
        throw UsageError("this vxctl was built without a face, and draws nothing");
    CheckFit(session, args, message, {});
}

#endif

} // namespace vxctl
