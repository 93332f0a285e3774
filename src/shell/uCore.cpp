#include "uCore.h"

#include "uPath.h"

#include <cstdio>

namespace murala
{

std::string TCore::FilePath(std::string_view name) const
{
    return JoinPath(Services.ProgramFolder, name);
}

void TCore::Tell(const std::string& text)
{
    if (IsSilent) {
        std::fprintf(stderr, "Murala: %s\n", text.c_str());
        return;
    }
    const TPauseScope pause(Pauses);
    View.ShowMessage(text);
}

void TCore::Report(TReport report, const std::string& text)
{
    if (report == TReport::MessageBox)
        return Tell(text);
    Problem = text;
    View.SetStatus(text);
}

} // namespace murala
