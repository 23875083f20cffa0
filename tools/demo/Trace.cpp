#include "tools/demo/Trace.h"

#include "game/HUD.h"
#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/Pelko.h"
#include "platform/Unicode.h"

#include <charconv>
#include <cmath>

namespace {

void Append(std::string& line, double number) {
    if (!std::isfinite(number)) { // JSON has no word for it
        line += "null";
        return;
    }
    char digits[32];
    line.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

void Append(std::string& line, int number) { line += std::to_string(number); }
void Append(std::string& line, bool claim) { line += claim ? "true" : "false"; }

void Append(std::string& line, DOUBLE2 point) {
    line += "\"x\":";
    Append(line, point.x);
    line += ",\"y\":";
    Append(line, point.y);
}

void Append(std::string& line, RECT2 box) {
    line += '[';
    for (const double edge : {box.left, box.top, box.right}) {
        Append(line, edge);
        line += ',';
    }
    Append(line, box.bottom);
    line += ']';
}

void Append(std::string& line, std::wstring_view text) {
    line += '"';
    for (const char byte : platform::ToUtf8(text)) {
        constexpr char hex[] = "0123456789abcdef";
        if (byte == '"' || byte == '\\') {
            line += '\\';
            line += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20) {
            line += "\\u00";
            line += hex[byte >> 4];
            line += hex[byte & 15];
        } else {
            line += byte;
        }
    }
    line += '"';
}

template <typename Value>
void AppendField(std::string& line, const char* name, Value value) {
    line += ",\"";
    line += name;
    line += "\":";
    Append(line, value);
}

/// `count` elements in brackets, each written by `append`.
template <typename AppendElement>
void AppendList(std::string& line, int count, AppendElement append) {
    line += '[';
    for (int i = 0; i < count; ++i) {
        if (i > 0) line += ',';
        append(i);
    }
    line += ']';
}

/// The slots of a list of enemies or entities; an empty slot is null.
template <typename List>
void AppendSlots(std::string& line, List& list, int count) {
    AppendList(line, count, [&](int i) {
        if (list.GetType(i) < 0) {
            line += "null";
            return;
        }
        line += "{\"type\":";
        Append(line, list.GetType(i));
        line += ',';
        Append(line, list.GetPosition(i));
        AppendField(line, "box", list.GetHitRect(i));
        line += '}';
    });
}

} // namespace

void AppendTraceLine(std::string& line, int tick, std::span<const platform::ScriptedDesktop::MediaCommand> media) {
    const Pelko& hero = *Pelko::GetSingleton();
    line += "{\"tick\":";
    Append(line, tick);
    line += ",\"hero\":{";
    Append(line, hero.GetPosition());
    AppendField(line, "form", hero.GetFormState());
    AppendField(line, "alive", hero.IsAlive());
    AppendField(line, "invulnerable", hero.IsInvulnerable());
    AppendField(line, "star", hero.IsStarActive());
    AppendField(line, "right", hero.IsFacingRight());
    line += "},\"camera\":{";
    Append(line, Quillfen::GetSingleton()->GetCameraPosition());
    const HUD& hud = *HUD::GetSingleton();
    line += "},\"hud\":{\"time\":";
    Append(line, hud.GetTime());
    AppendField(line, "score", hud.GetScore());
    AppendField(line, "coins", hud.GetCoins());
    line += '}';
    AppendField(line, "flagDown", Level::GetSingleton()->IsFlagDown());
    line += ",\"blocks\":";
    BlockList& blocks = *BlockList::GetSingleton();
    AppendList(line, BlockList::blockCount, [&](int i) {
        const DOUBLE2 position = blocks.GetPosition(i);
        line += '[';
        Append(line, blocks.GetType(i));
        for (const double coordinate : {position.x, position.y}) {
            line += ',';
            Append(line, coordinate);
        }
        line += ']';
    });
    line += ",\"enemies\":";
    AppendSlots(line, *EnemyList::GetSingleton(), EnemyList::slotCount);
    line += ",\"entities\":";
    AppendSlots(line, *EntityList::GetSingleton(), EntityList::GetSingleton()->GetSize());
    line += ",\"media\":";
    AppendList(line, static_cast<int>(media.size()),
               [&](int i) { Append(line, std::wstring_view(media[static_cast<std::size_t>(i)].text)); });
    line += "}\n";
}
