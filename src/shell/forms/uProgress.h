// Windows for long work: the start, and work that the user can end.
#pragma once

#include "uMainView.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class wxFrame;
class wxProgressDialog;
class wxWindow;

namespace murala
{

// Shown while the program starts, if that takes so long that the user would wonder.
class TfProgress
{
public:
    explicit TfProgress(std::string text);
    TfProgress(const TfProgress&) = delete;
    TfProgress& operator=(const TfProgress&) = delete;
    ~TfProgress();

    // One more step is done.
    void Step();

private:
    std::string m_text;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    wxFrame* m_window = nullptr;
};

// A dialog with a progress bar and "Cancel", shown when the work takes longer than a moment.
class TProgressDialog : public TLongWork
{
public:
    TProgressDialog(wxWindow* parent, int range);
    ~TProgressDialog() override;

    // Whether the window should be updated now: updating it at each step would take longer than
    // most steps.
    bool IsDue() const;
    bool Step(int position, const std::string& text) override;
    void Finish(const std::string& text) override;

private:
    wxWindow* m_parent;
    int m_range;
    std::chrono::steady_clock::time_point m_lastTold = std::chrono::steady_clock::now();
    std::unique_ptr<wxProgressDialog> m_dialog;
    std::function<void()> m_restoreInput;
    bool m_isCancelled = false;
};

} // namespace murala
