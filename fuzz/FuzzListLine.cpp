#include "uListLine.h"
#include "uRequire.h"
#include "uWallpaper.h"

#include <cstdint>

using namespace murala;

namespace
{

void CheckLine(std::string_view line)
{
    TMuWallpaper item;
    try {
        item.LoadFromLine(line);
    } catch (const EConvertError&) {
        return;
    }
    const std::string saved = item.SaveToLine();
    const std::string text = saved + "\r\n\"next\"";
    std::string_view rest = text;
    Require(TakeListLine(rest) == saved, "a saved line is one line");
    Require(rest == "\"next\"", "the next line is left");
    TMuWallpaper again;
    again.LoadFromLine(saved);
    Require(again.SaveToLine() == saved, "a saved line loads as it was");
    Require(again.FileName() == item.FileName() && again.Title == item.Title &&
                again.Category == item.Category &&
                again.DesktopColor << 8U == item.DesktopColor << 8U,
            "the item is the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckLine(text);
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t before = rest.size();
        const std::string_view line = TakeListLine(rest);
        Require(rest.size() < before && line.size() <= before - rest.size() &&
                    before - rest.size() <= line.size() + 2,
                "taking lines comes to an end and skips nothing but line ends");
        CheckLine(line);
    }
    return 0;
}
