#include "tests/support/StartedSounds.h"

#include <map>
#include <sstream>

std::vector<StartedSound> StartedSounds(const std::vector<platform::ScriptedDesktop::MediaCommand>& commands) {
    std::map<std::wstring, std::string> files;      // by alias
    std::map<std::wstring, std::size_t> lastStarts; // by alias
    std::vector<StartedSound> sounds;
    for (const platform::ScriptedDesktop::MediaCommand& command : commands) {
        std::wistringstream text(command.text);
        std::vector<std::wstring> words;
        for (std::wstring word; text >> word;) words.push_back(word);
        const std::wstring& verb = words.front();
        const std::wstring& target = words[1];
        if (verb == L"open") {
            const std::size_t nameBegin = target.rfind(L'/') + 1;
            const std::wstring name = target.substr(nameBegin, target.find(L'.', nameBegin) - nameBegin);
            files[words.back()] = std::string(name.begin(), name.end());
        } else if (verb == L"play" || verb == L"resume") {
            lastStarts[target] = sounds.size();
            sounds.push_back({command.frame, files[target]});
        } else if (verb == L"setaudio" && lastStarts.contains(target)) {
            sounds[lastStarts[target]].volume = std::stoi(words.back());
        }
    }
    return sounds;
}
