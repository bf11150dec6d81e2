// What a command works with: the options that hold for every command, the sign, and the report.
#pragma once

#include "vxctl/cli/options.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/report.h"
#include "vxctl/cli/signUrl.h"

#include <vxsign/api.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vxctl {

class Relay;

struct Session
{
    Options options;
    Report report;
    std::optional<int> exitStatus;        // in place of the usual one, for what the sign is asked about
    bool heedsSignals = false;            // Ctrl-C ends what waits
    bool isOneOfMany = false;             // other threads do the same with other signs: a line will do
    std::vector<Target> signs;            // all that the command line names; the first has the options
    mutable std::shared_ptr<Relay> relay; // stands between the library and the sign where all is recorded
    std::string leftOver; // what a command leaves that is stopped behind the first progress; often nothing

    // The sign, ready for functions that take the connection as arguments. Throws UsageError.
    SignUrl Sign() const { return Resolve(ParseSignUrl(options.url)); }

    // Makes the sign that of this thread, for functions that use the thread's configuration, and logs in where the
    // options say so. Throws UsageError and SignFailure.
    void Connect(vxOnProgress onProgress = ProgressBar::OnProgress, vxOnLog onLog = nullptr) const;

    // Leaves the line to whoever looks at it until it connects anew.
    void HangUp() const { relay.reset(); }

    // Connects anew and listens, for calls that pass over a step that failed; Failed() is then the text of the last
    // one that did, "" for none. A file that the sign does not have is none.
    void ConnectListening() const;
    static const std::string& Failed();
};

} // namespace vxctl
