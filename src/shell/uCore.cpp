#include "uCore.h"

#include "uPath.h"

#include <cstdio>
#include <new>
#include <utility>

namespace murala
{

TCore::TCore(TServices services, TMainView& view) : Services(std::move(services)), View(view)
{
    Listeners.OnFailure = [this](const std::exception& error) {
        Report(TReport::StatusLine, error);
    };
}

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
    Status.SetProblem(text);
}

void TCore::Report(TReport report, const std::exception& error)
{
    const bool isMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    Report(report, isMemory ? "There is not enough memory for this." : error.what());
}

} // namespace murala
