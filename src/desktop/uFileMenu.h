// Commands in the menus that the file manager shows on files.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace murala
{

struct TFileCommand {
    std::string Verb;                    // the menu's text
    std::vector<std::string> Extensions; // such as ".bmp"
    std::string Program;                 // full path; it is given the files as arguments
};

class TFileMenu
{
public:
    virtual ~TFileMenu() = default;

    virtual void AddShellCommand(const TFileCommand& command) = 0;
    virtual void RemoveShellCommand(const TFileCommand& command) = 0;
    // Whether every extension has the command.
    virtual bool ShellCommandExists(const TFileCommand& command) = 0;
};

std::unique_ptr<TFileMenu> NewFileMenu();

} // namespace murala
