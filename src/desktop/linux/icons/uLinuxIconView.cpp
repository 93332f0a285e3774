// Other programs cannot reach the icons on a Linux desktop, but some desktops keep their places in
// files. Where the panel is, no desktop tells.
#include "uDesktopIcons.h"
#include "uFileError.h"
#include "uIconView.h"
#include "uTaskBar.h"

namespace murala
{

namespace
{

class TLinuxIconView : public TIconView
{
public:
    bool CanBeAsked() override { return false; }
    TColor GetIconTextBackColor() override { return 0; }
    void SetIconTextBackColor(TColor /*color*/) override {}
    TIconRegion GetIconRegion() override
    try {
        return {ReadDesktopIcons(), {}};
    } catch (const EIconsUnknown& unknown) {
        return {{}, unknown.what()};
    } catch (const EFileError& error) {
        return {{}, error.what()};
    }
};

class TNoTaskBar : public TTaskBar
{
public:
    TRect GetTaskBarRect() override { throw ETaskBarMissing(); }
};

} // namespace

std::unique_ptr<TIconView> NewIconView()
{
    return std::make_unique<TLinuxIconView>();
}

std::unique_ptr<TTaskBar> NewTaskBar()
{
    return std::make_unique<TNoTaskBar>();
}

} // namespace murala
