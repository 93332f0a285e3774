// The small window that shows that long work goes on.
#pragma once

#include <chrono>
#include <string>

class wxFrame;

namespace murala
{

class TfProgress
{
public:
    explicit TfProgress(std::string text);
    TfProgress(const TfProgress&) = delete;
    TfProgress& operator=(const TfProgress&) = delete;
    ~TfProgress();

    // The work goes on: shows the window once it has taken so long that the user wonders.
    void Step();

private:
    std::string m_text;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    wxFrame* m_window = nullptr;
};

} // namespace murala
