// What happens between the start of the program file and the main window.
#pragma once

#include "uFileMenu.h"
#include "uFileQueue.h"
#include "uInstanceLink.h"

#include <optional>
#include <string>
#include <vector>

namespace murala
{

enum class TEntry {
    Run, // this copy becomes the running one; it holds the start lock until its window is activated
    End, // everything is done, or a running copy does it
    Failed, // the same, but not all of it could be done
};

// What "--version" and "--help" print, as the only argument: then nothing else is done. Nothing for
// every other command line.
std::optional<std::string> AnswerBeforeEntry(const std::vector<std::string>& arguments);

// `arguments` without the program's own name. The files among them are queued for whichever copy
// takes them. This works without a screen.
TEntry EnterProgram(const std::vector<std::string>& arguments, TFileMenu& fileMenu,
                    TFileQueue& fileQueue, TInstanceLink& link);

// "/apply" as the first argument, in any letter case.
bool IsApplyStart(const std::vector<std::string>& arguments);

} // namespace murala
