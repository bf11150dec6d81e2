// Content that a sign is to show at once.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/cli/session.h"

#include <string>
#include <vector>

namespace vxctl {

// What of a list goes to the sign.
enum class Parts
{
    kAll,
    kFilesAlone,
    kSequenceAlone
};

// Sends a message file under a name such as "QMSG.Nmg" and has the sign play it alone, if that is wanted. Gives its
// path there. As ShowList it takes --drive, and throws SignFailure.
std::string ShowMessage(Session& session, const Args& args, const std::string& local, const std::string& name,
                        bool isPlayed);

// Sends files, 128 at most, and has the sign play them one after the other, all with --mode and --stay.
void ShowList(Session& session, const Args& args, const std::vector<std::string>& files, Parts parts);

} // namespace vxctl
