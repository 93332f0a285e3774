// Icons on a Linux desktop are no windows that another program could reach, and no desktop tells
// where its panel lies.
#include "uIconView.h"
#include "uTaskBar.h"

namespace murala
{

namespace
{

class TNoIconView : public TIconView
{
public:
    bool CanBeAsked() override { return false; }
    TColor GetIconTextBackColor() override { return 0; }
    void SetIconTextBackColor(TColor /*color*/) override {}
    std::optional<std::vector<TRect>> GetIconRegion() override { return std::nullopt; }
};

class TNoTaskBar : public TTaskBar
{
public:
    TRect GetTaskBarRect() override { throw ETaskBarMissing(); }
};

} // namespace

std::unique_ptr<TIconView> NewIconView()
{
    return std::make_unique<TNoIconView>();
}

std::unique_ptr<TTaskBar> NewTaskBar()
{
    return std::make_unique<TNoTaskBar>();
}

} // namespace murala
