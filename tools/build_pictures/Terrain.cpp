#include "tools/build_pictures/Terrain.h"

#include "tools/art/Palette.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace pictures {

Terrain::Terrain(const std::string& path) : solid(static_cast<std::size_t>(levelWidth) * levelHeight) {
    std::ifstream stream(path);
    const std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    const auto fail = [&](const std::string& fault) { throw SourceError(path, 0, fault); };
    const std::size_t pathAt = text.find("<path");
    const std::size_t dataAt = pathAt == std::string::npos ? pathAt : text.find(" d=\"", pathAt);
    const std::size_t endAt = dataAt == std::string::npos ? dataAt : text.find('"', dataAt + 4);
    if (endAt == std::string::npos) fail("no <path with a d attribute");

    std::istringstream data(text.substr(dataAt + 4, endAt - dataAt - 4));
    char command = 0;
    Corner at{0, 0};
    while (data >> std::ws && !data.eof()) {
        if (std::isalpha(data.peek())) data >> command;
        if (command == 'Z') continue;
        if (command == 'M' || command == 'L') {
            data >> at.x >> at.y;
        } else if (command == 'H') {
            data >> at.x;
        } else if (command == 'V') {
            data >> at.y;
        } else {
            fail(std::string("the outline is drawn with M, L, H, V and Z, not ") + command);
        }
        if (!data) fail("a coordinate is missing or not a whole number");
        if (command == 'M') figures.emplace_back();
        if (figures.empty()) fail("the outline must begin with M");
        figures.back().push_back(at);
    }
    Fill();
}

bool Terrain::IsSolid(int x, int y) const {
    const auto column = static_cast<std::size_t>(std::clamp(x, 0, levelWidth - 1));
    const auto row = static_cast<std::size_t>(std::clamp(y, 0, levelHeight - 1));
    return solid[row * levelWidth + column] != 0;
}

int Terrain::GroundAt(int x) const {
    int y = overworldBottom;
    while (y > 0 && IsSolid(x, y - 1)) --y;
    return y;
}

int Terrain::DepthFrom(int x, int y, int stepX, int stepY, int limit) const {
    int depth = 1;
    while (depth < limit && IsSolid(x + depth * stepX, y + depth * stepY)) ++depth;
    return depth;
}

bool Terrain::SaveOutline(const std::string& path) const {
    std::ofstream stream(path);
    stream << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << levelWidth << "\" height=\"" << levelHeight
           << "\">\n"
           << "  <path d=\"";
    for (const std::vector<Corner>& figure : figures) {
        for (std::size_t i = 0; i < figure.size(); ++i) {
            stream << (i == 0 ? "M " : " L ") << figure[i].x << ' ' << figure[i].y;
        }
        stream << " Z\n    ";
    }
    stream << "\"/>\n</svg>\n";
    return stream.good();
}

void Terrain::Fill() {
    for (int y = 0; y < levelHeight; ++y) {
        std::vector<double> crossings;
        const double middle = y + 0.5;
        for (const std::vector<Corner>& figure : figures) {
            for (std::size_t i = 0; i < figure.size(); ++i) {
                const Corner a = figure[i];
                const Corner b = figure[(i + 1) % figure.size()];
                if ((a.y < middle) == (b.y < middle)) continue;
                crossings.push_back(a.x + (middle - a.y) * (b.x - a.x) / (b.y - a.y));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            for (int x = 0; x < levelWidth; ++x) {
                if (x + 0.5 < crossings[i] || x + 0.5 >= crossings[i + 1]) continue;
                solid[static_cast<std::size_t>(y) * levelWidth + static_cast<std::size_t>(x)] = 1;
            }
        }
    }
}

} // namespace pictures
