// How well the line to a sign works, and what is wrong with it.
#pragma once

#include "vxctl/cli/lineFault.h"
#include "vxctl/cli/session.h"
#include "vxctl/state/findings.h"

#include <cstdint>

namespace vxctl {

// Questions that were asked once each, and what became of them.
struct LineState
{
    int asked = 0;
    int answered = 0;
    int unconnected = 0; // no connection was made
    int silent = 0;
    int noisy = 0;    // bytes came, but no packet
    int damaged = 0;  // a packet with a wrong sum, or a part of one
    int mistaken = 0; // a packet for another request
    double slowestMs = 0;
    bool isLate = false; // an answer comes after the time for a try
    bool isAborted = false;
    LineFault fault; // what the system knows of a line on which nothing answers
};

LineState ExamineLine(Session& session);

// As a finding.
void TellLine(const LineState& line, const Options& options, Findings& findings);

} // namespace vxctl
