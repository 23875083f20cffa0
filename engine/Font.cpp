#include "engine/Font.h"

#include "engine/GameEngine.h"
#include "platform/Desktop.h"

Font::Font(String const& fontName, float size)
    : textFormatPtr(GameEngine::GetSingleton()->GetDWriteFactory()->CreateTextFormat(fontName.C_str(), size)) {
    const bool isReady = textFormatPtr && textFormatPtr->SetTextAlignment(DWRITE_TEXT_ALIGNMENT_LEADING) >= 0 &&
                         textFormatPtr->SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT_NEAR) >= 0;
    if (isReady) return;
    platform::Desktop::Current().MessageBox(fontName.C_str(), L"TEXTFORMAT BUILDING ERROR");
    platform::ExitProcess(-1);
}
