#pragma once

#include "platform/core/text/TextFormat.h"

#include <memory>
#include <string>
#include <string_view>

struct _PangoContext;
struct _PangoFontMap;
struct _PangoLayout;

namespace platform {

struct LayoutReleaser {
    void operator()(_PangoLayout* layoutPtr) const;
};
using LayoutPtr = std::unique_ptr<_PangoLayout, LayoutReleaser>;

/// The system's fonts. They are looked for when this is made, and given back with it.
class Fonts {
public:
    /// The fonts that the program has in use; they stay for as long as somebody keeps them.
    static std::shared_ptr<Fonts> Shared();
    Fonts();
    ~Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    /// `text` (UTF-8, without zeros) in that font, in as many lines as it has.
    LayoutPtr Layout(const std::string& text, const FontChoice& font) const;

private:
    struct Releaser {
        void operator()(void* objectPtr) const;
    };
    std::unique_ptr<_PangoFontMap, Releaser> fontsPtr;
    std::unique_ptr<_PangoContext, Releaser> contextPtr;
};

/// The text as the text library takes it: UTF-8 without zeros, at which it would take the text to end.
std::string LayoutText(std::wstring_view text);

} // namespace platform
