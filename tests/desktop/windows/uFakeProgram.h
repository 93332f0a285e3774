// Starting the programs of Fakes.exe.
#pragma once

#include "uTempFolder.h"
#include "uWindowsHandles.h"

#include <functional>
#include <string>
#include <vector>

namespace murala
{

// Polls for ten seconds at the most. The last answer.
bool Eventually(const std::function<bool()>& condition);

// Fakes.exe, which lies beside the test program.
std::string FakeProgramFile();

// Runs until the end of the test.
class TFakeProgram
{
public:
    explicit TFakeProgram(const std::string& mode);
    TFakeProgram(const TFakeProgram&) = delete;
    TFakeProgram& operator=(const TFakeProgram&) = delete;
    ~TFakeProgram() { Kill(); }

    void Kill();
    std::vector<std::string> Log() const;

private:
    TTempFolder m_folder;
    THandle m_process;
};

} // namespace murala
