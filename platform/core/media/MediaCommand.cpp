#include "platform/core/media/MediaCommand.h"

#include <algorithm>

namespace platform {

namespace {
using Verb = MediaCommand::Verb;
using FileType = MediaCommand::FileType;

/// Takes words off the front of a text. What is missing or of the wrong kind makes the whole reading fail.
class WordReader {
public:
    explicit WordReader(std::wstring_view text) : rest(text) { SkipSpaces(); }

    /// Takes the next word, whatever it is.
    std::wstring_view Word() {
        const std::wstring_view word = rest.substr(0, rest.find(L' '));
        if (word.empty()) failed = true;
        Advance(word.size());
        return word;
    }

    /// Takes the next word if it is `word`.
    bool Accept(std::wstring_view word) {
        if (rest.substr(0, rest.find(L' ')) != word) return false;
        Advance(word.size());
        return true;
    }

    void Expect(std::wstring_view word) {
        if (!Accept(word)) failed = true;
    }

    /// A decimal number without sign, up to nine digits.
    int Number() {
        const std::wstring_view digits = Word();
        const bool isNumber =
            !digits.empty() && digits.size() <= 9 &&
            std::all_of(digits.begin(), digits.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
        if (!isNumber) {
            failed = true;
            return 0;
        }
        int value = 0;
        for (const wchar_t digit : digits) value = value * 10 + (digit - L'0');
        return value;
    }

    /// The text between two double quotes; there is no way to write a quote inside.
    std::wstring_view Quoted() {
        const std::size_t end = rest.find(L'"', 1);
        if (!rest.starts_with(L'"') || end == std::wstring_view::npos) {
            failed = true;
            return {};
        }
        const std::wstring_view text = rest.substr(1, end - 1);
        const bool wordEnds = end + 1 == rest.size() || rest[end + 1] == L' ';
        if (!wordEnds) failed = true;
        Advance(end + 1);
        return text;
    }

    void Fail() { failed = true; }
    bool HasReadAll() const { return !failed && rest.empty(); }

private:
    void Advance(std::size_t count) {
        rest.remove_prefix(count);
        SkipSpaces();
    }
    void SkipSpaces() { rest.remove_prefix(std::min(rest.find_first_not_of(L' '), rest.size())); }

    std::wstring_view rest;
    bool failed = false;
};

void ReadOpen(WordReader& reader, MediaCommand& command) {
    command.fileName = reader.Quoted();
    reader.Expect(L"type");
    if (reader.Accept(L"mpegvideo")) {
        command.fileType = FileType::mpegVideo;
    } else if (reader.Accept(L"waveaudio")) {
        command.fileType = FileType::waveAudio;
    } else if (reader.Accept(L"sequencer")) {
        command.fileType = FileType::sequencer;
    } else {
        reader.Fail();
    }
    reader.Expect(L"alias");
    command.alias = reader.Word();
}

void ReadPlay(WordReader& reader, MediaCommand& command) {
    command.alias = reader.Word();
    reader.Expect(L"from");
    command.from = reader.Number();
    if (reader.Accept(L"to")) command.to = reader.Number();
    command.notify = reader.Accept(L"notify");
}

void ReadSetVolume(WordReader& reader, MediaCommand& command) {
    command.alias = reader.Word();
    reader.Expect(L"volume");
    reader.Expect(L"to");
    command.volume = reader.Number();
}

void ReadSetTimeFormat(WordReader& reader, MediaCommand& command) {
    command.alias = reader.Word();
    reader.Expect(L"time");
    reader.Expect(L"format");
    reader.Expect(L"milliseconds");
}

void ReadStatusLength(WordReader& reader, MediaCommand& command) {
    command.alias = reader.Word();
    reader.Expect(L"length");
}

void ReadAlias(WordReader& reader, MediaCommand& command) { command.alias = reader.Word(); }

struct Syntax {
    std::wstring_view word;
    Verb verb;
    void (*read)(WordReader& reader, MediaCommand& command);
};

constexpr Syntax commands[] = {
    {L"open", Verb::open, ReadOpen},
    {L"set", Verb::setTimeFormat, ReadSetTimeFormat},
    {L"status", Verb::statusLength, ReadStatusLength},
    {L"play", Verb::play, ReadPlay},
    {L"pause", Verb::pause, ReadAlias},
    {L"resume", Verb::resume, ReadAlias},
    {L"stop", Verb::stop, ReadAlias},
    {L"setaudio", Verb::setVolume, ReadSetVolume},
    {L"close", Verb::close, ReadAlias},
};
} // namespace

std::optional<MediaCommand> ParseMediaCommand(std::wstring_view text) {
    WordReader reader(text);
    for (const Syntax& syntax : commands) {
        if (!reader.Accept(syntax.word)) continue;
        MediaCommand command;
        command.verb = syntax.verb;
        syntax.read(reader, command);
        if (!reader.HasReadAll()) return std::nullopt;
        return command;
    }
    return std::nullopt;
}

} // namespace platform
