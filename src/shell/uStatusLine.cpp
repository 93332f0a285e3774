#include "uStatusLine.h"

#include <utility>

namespace murala
{

void TStatusLine::Show()
{
    if (!m_problem.empty())
        m_view.SetStatus(m_problem);
    else
        m_view.SetStatus(m_previewProblem.empty() ? m_item : m_previewProblem);
}

void TStatusLine::SetProblem(const std::string& text)
{
    m_problem = text;
    Show();
}

void TStatusLine::SetPreviewProblem(const std::string& text)
{
    if (std::exchange(m_previewProblem, text) != text)
        Show();
}

void TStatusLine::SetItem(const std::string& text)
{
    m_item = text;
    Show();
}

} // namespace murala
