#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <string_view>

/// A folder for the files of one test, removed with them at its end.
class TestFolder {
public:
    TestFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "quillfen-XXXXXX").string();
        path = mkdtemp(pattern.data());
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& Root() const { return path; }
    /// The path of file `name` in this folder, ASCII.
    std::wstring Path(std::string_view name) const { return (path / name).wstring(); }

    void Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::create_directories((path / name).parent_path());
        std::ofstream(path / name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::string Read(std::string_view name) const {
        std::ifstream file(path / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    /// Copies a file or a folder with all that is in it, from its place below the root folder to the same place here.
    void Copy(std::string_view name) const {
        std::filesystem::create_directories((path / name).parent_path());
        std::filesystem::copy(name, path / name, std::filesystem::copy_options::recursive);
    }

private:
    std::filesystem::path path;
};
