#include "uFakeProgram.h"

#include "uProgramFolder.h"

#include <fstream>

namespace murala
{

bool Eventually(const std::function<bool()>& condition)
{
    for (int i = 0; i < 500 && !condition(); i++)
        Sleep(20);
    return condition();
}

std::string FakeProgramFile()
{
    return ProgramFolder() + "Fakes.exe";
}

TFakeProgram::TFakeProgram(const std::string& mode)
{
    std::string command =
        '"' + FakeProgramFile() + "\" " + mode + " \"" + m_folder.File("log") + '"';
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &started));
    const THandle thread(started.hThread);
    m_process.reset(started.hProcess);
}

void TFakeProgram::Kill()
{
    TerminateProcess(m_process.get(), 0);
    WaitForSingleObject(m_process.get(), INFINITE);
}

std::vector<std::string> TFakeProgram::Log() const
{
    std::vector<std::string> lines;
    std::ifstream file(m_folder.File("log"));
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

} // namespace murala
