// What the status line says.
#pragma once

#include "uMainView.h"

#include <string>

namespace murala
{

// A problem goes before the text of the selected wallpaper. Notes and hints cover either for a
// while: until Show, or until there is something new to say.
class TStatusLine
{
public:
    explicit TStatusLine(TMainView& view) : m_view(view) {}

    // What went wrong with the wallpaper on the desktop. It stays until the next one is applied or
    // the user goes on; empty: it is gone.
    void SetProblem(const std::string& text);
    const std::string& Problem() const { return m_problem; }
    // What the preview could not show; empty: it shows everything again.
    void SetPreviewProblem(const std::string& text);
    void SetItem(const std::string& text);

    void Note(const std::string& text) { m_view.SetStatus(text); }
    void Show();

private:
    TMainView& m_view;
    std::string m_problem, m_previewProblem, m_item;
};

} // namespace murala
