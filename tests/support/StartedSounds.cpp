#include "tests/support/StartedSounds.h"

#include <map>
#include <sstream>

std::vector<StartedSound> StartedSounds(const std::vector<platform::ScriptedDesktop::MediaCommand>& commands) {
    std::map<std::wstring, std::string> files; // by alias
    std::vector<StartedSound> sounds;
    for (const platform::ScriptedDesktop::MediaCommand& command : commands) {
        std::wistringstream words(command.text);
        std::wstring verb;
        std::wstring target;
        words >> verb >> target;
        if (verb == L"open") {
            const std::size_t nameBegin = target.rfind(L'/') + 1;
            const std::wstring name = target.substr(nameBegin, target.find(L'.', nameBegin) - nameBegin);
            std::wstring alias;
            while (words >> alias) {}
            files[alias] = std::string(name.begin(), name.end());
        } else if (verb == L"play" || verb == L"resume") {
            sounds.push_back({command.frame, files[target]});
        }
    }
    return sounds;
}
