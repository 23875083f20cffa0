#include "tools/demo/Trace.h"

#include "game/HUD.h"
#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/StateReport.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/Pelko.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

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

void Append(std::string& line, std::span<const double> numbers) {
    AppendList(line, static_cast<int>(numbers.size()),
               [&](int i) { Append(line, numbers[static_cast<std::size_t>(i)]); });
}

void Append(std::string& line, DOUBLE2 point) { Append(line, std::array{point.x, point.y}); }
void Append(std::string& line, RECT2 box) { Append(line, std::array{box.left, box.top, box.right, box.bottom}); }

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

/// Writes the fields of one JSON object: first those that it is given, in their order, then those that an object of the
/// game reports, by name, so that a reported field may move from one class to another.
class ObjectWriter : private StateReport {
public:
    explicit ObjectWriter(std::string& target) : line(target) { line += '{'; }

    template <typename Value>
    ObjectWriter& Field(const char* name, Value value) {
        line += separator;
        AppendField(line, name, value);
        separator = ",";
        return *this;
    }
    ObjectWriter& Place(DOUBLE2 point) { return Field("x", point.x).Field("y", point.y); }
    /// Ends the object with what `report` adds to the report it gets.
    template <typename ReportTo>
    void EndWith(ReportTo report) {
        report(static_cast<StateReport&>(*this));
        std::ranges::sort(reported);
        for (const std::string& field : reported) {
            line += separator;
            line += field;
            separator = ",";
        }
        line += '}';
    }

private:
    void Add(const char* name, bool claim) override { AppendField(reported.emplace_back(), name, claim); }
    void Add(const char* name, int number) override { AppendField(reported.emplace_back(), name, number); }
    void Add(const char* name, double number) override { AppendField(reported.emplace_back(), name, number); }
    void Add(const char* name, DOUBLE2 point) override { AppendField(reported.emplace_back(), name, point); }
    void Add(const char* name, RECT2 box) override { AppendField(reported.emplace_back(), name, box); }

    template <typename Value>
    static void AppendField(std::string& text, const char* name, Value value) {
        text += '"';
        text += name;
        text += "\":";
        Append(text, value);
    }

    std::string& line;
    const char* separator = "";
    std::vector<std::string> reported;
};

/// What `object` reports, as its fields' end.
template <typename Object>
auto ReportOf(const Object& object) {
    return [&object](StateReport& report) { object.Report(report); };
}

void AppendHero(std::string& line) {
    const Pelko& hero = *Pelko::GetSingleton();
    ObjectWriter(line)
        .Place(hero.GetPosition())
        .Field("form", hero.GetFormState())
        .Field("alive", hero.IsAlive())
        .Field("invulnerable", hero.IsInvulnerable())
        .Field("star", hero.IsStarActive())
        .Field("right", hero.IsFacingRight())
        .EndWith(ReportOf(hero));
}

void AppendCamera(std::string& line) {
    const Quillfen& game = *Quillfen::GetSingleton();
    ObjectWriter(line).Place(game.GetCameraPosition()).EndWith(ReportOf(game));
}

void AppendHud(std::string& line) {
    const HUD& hud = *HUD::GetSingleton();
    ObjectWriter(line)
        .Field("time", hud.GetTime())
        .Field("score", hud.GetScore())
        .Field("coins", hud.GetCoins())
        .EndWith(ReportOf(hud));
}

void AppendBlocks(std::string& line) {
    const BlockList& blocks = *BlockList::GetSingleton();
    AppendList(line, BlockList::blockCount, [&](int i) {
        const DOUBLE2 position = blocks.GetPosition(i);
        Append(line, std::array<double, 3>{static_cast<double>(blocks.GetType(i)), position.x, position.y});
    });
}

void AppendBlockStates(std::string& line) {
    const BlockList& blocks = *BlockList::GetSingleton();
    AppendList(line, BlockList::blockCount,
               [&](int i) { ObjectWriter(line).EndWith([&](StateReport& report) { blocks.Report(i, report); }); });
}

/// The slots of a list of enemies or entities.
template <typename List>
void AppendSlots(std::string& line, const List& list, int count) {
    AppendList(line, count, [&](int i) {
        if (list.GetType(i) < 0) {
            line += "null";
            return;
        }
        ObjectWriter(line)
            .Field("type", list.GetType(i))
            .Place(list.GetPosition(i))
            .Field("box", list.GetHitRect(i))
            .EndWith([&](StateReport& report) { list.Report(i, report); });
    });
}

void AppendFireballs(std::string& line) {
    AppendList(line, Pelko::fireballCount, [&](int i) {
        if (const Fireball* const fireballPtr = Pelko::GetSingleton()->GetFireball(i)) {
            ObjectWriter(line).EndWith(ReportOf(*fireballPtr));
        } else {
            line += "null";
        }
    });
}

void AppendMedia(std::string& line, std::span<const platform::ScriptedDesktop::MediaCommand> media) {
    AppendList(line, static_cast<int>(media.size()),
               [&](int i) { Append(line, std::wstring_view(media[static_cast<std::size_t>(i)].text)); });
}

} // namespace

Trace TraceOfGame(std::span<const platform::ScriptedDesktop::MediaCommand> media) {
    const Level& level = *Level::GetSingleton();
    const EntityList& entities = *EntityList::GetSingleton();
    Trace trace;
    const auto add = [&trace](const char* name) -> std::string& { return trace.emplace_back(name).value; };
    AppendHero(add("hero"));
    AppendCamera(add("camera"));
    AppendHud(add("hud"));
    Append(add("flagDown"), level.IsFlagDown());
    AppendBlocks(add("blocks"));
    AppendSlots(add("enemies"), *EnemyList::GetSingleton(), EnemyList::slotCount);
    AppendSlots(add("entities"), entities, entities.GetSize());
    AppendMedia(add("media"), media);
    ObjectWriter(add("level")).EndWith(ReportOf(level));
    AppendBlockStates(add("blockStates"));
    AppendFireballs(add("fireballs"));
    return trace;
}

std::string TraceLine(int tick, const Trace& trace) {
    std::string line = "{\"tick\":" + std::to_string(tick);
    for (const TraceField& field : trace) {
        line += ",\"";
        line += field.name;
        line += "\":";
        line += field.value;
    }
    return line + "}\n";
}
