#include "tools/art/Palette.h"

#include "tools/art/SourceFile.h"

namespace pictures {

Palette::Palette(const std::string& path) {
    constexpr std::size_t maxColours = 48;
    SourceFile file(path);
    while (file.NextLine()) {
        const std::string name = file.Word("a colour name");
        const std::string hex = file.Word("a colour RRGGBB");
        if (hex.size() != 6 || hex.find_first_not_of("0123456789abcdef") != std::string::npos) {
            file.Fail("a colour is six digits 0-9, a-f");
        }
        const std::uint32_t colour = 0xff000000U | static_cast<std::uint32_t>(std::stoul(hex, nullptr, 16));
        if (!colours.emplace(name, colour).second) file.Fail("the colour " + name + " is there twice");
        if (colours.size() > maxColours) file.Fail("more than 48 colours");
        if (file.More()) {
            if (file.Word("solid") != "solid") file.Fail("only \"solid\" may follow a colour");
            solid.insert(colour);
        }
    }
}

} // namespace pictures
