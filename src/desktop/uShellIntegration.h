// What Murala leaves in the shell: the command "Add to Murala" on pictures, and the queue of files
// that one copy hands to another.
#pragma once

#include "uFileMenu.h"
#include "uFileQueue.h"

#include <string>
#include <string_view>
#include <vector>

namespace murala
{

inline constexpr std::string_view ShellVerb = "Add to Murala";

// The verb "Add to Murala" for the usual extension of every picture format. Its command names the
// folder that Murala is meant to be installed in (fixed by the build), not the one that it runs
// from.
void SetShellIntegration(TFileMenu& menu, bool integrated);
bool IsShellIntegrated(TFileMenu& menu);
// What to tell the user who has switched the integration on; empty when the program that the
// command starts is there.
std::string ShellIntegrationProblem();

// Full paths of the arguments that name a file or, as a pattern, match one (the first), in the
// spelling that the file system has stored. Others, such as "/apply", are left out.
std::vector<std::string> FindFilesOfArguments(const std::vector<std::string>& arguments);

// `arguments` without the program's own name. False when files among them could not be queued.
bool QueueFilesFromCommandLine(TFileQueue& queue, const std::vector<std::string>& arguments);

} // namespace murala
