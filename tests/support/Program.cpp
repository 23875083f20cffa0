#include "tests/support/Program.h"

#include <cstdio>
#include <sys/wait.h>

Ending RunCommand(const std::string& command, const std::filesystem::path& folder) {
    Ending ending;
    FILE* const pipePtr = popen(("cd '" + folder.string() + "' && { " + command + "; } 2>&1").c_str(), "r");
    if (pipePtr == nullptr) return ending;
    for (int byte; (byte = std::fgetc(pipePtr)) != EOF;) ending.told += static_cast<char>(byte);
    const int status = pclose(pipePtr);
    if (WIFEXITED(status)) ending.exitCode = WEXITSTATUS(status);
    return ending;
}

Ending RunProgram(const std::string& nameAndArguments, const std::filesystem::path& folder) {
    return RunCommand("'" + std::filesystem::absolute(QUILLFEN_BUILD_DIR).string() + "'/" + nameAndArguments, folder);
}
