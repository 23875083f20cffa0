#include "engine/SVGLoader.h"

#include "engine/Decimal.h"
#include "engine/GameEngine.h"
#include "platform/FilePath.h"

#include <array>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <span>

namespace {

void Show(String const& message) { GameEngine::GetSingleton()->MessageBox(message); }

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// Reads a text from left to right. A number that cannot be read fails the reader, as it does a stream: nothing can be
/// read from then on.
class TextReader {
public:
    explicit TextReader(std::string_view text) : rest(text) {}

    bool HasFailed() const { return failed; }
    bool IsAtEnd() const { return rest.empty(); }
    char Next() const { return rest.front(); }
    void Take() { rest.remove_prefix(1); }

    void SkipSpaces() {
        while (!IsAtEnd() && IsSpace(Next())) Take();
    }

    /// Takes `literal` if it comes next.
    bool TakeLiteral(std::string_view literal) {
        if (!rest.starts_with(literal)) return false;
        rest.remove_prefix(literal.size());
        return true;
    }

    /// A decimal number after any spaces: sign, digits, point, exponent.
    double ReadNumber() {
        SkipSpaces();
        double value = 0.0;
        const auto [numberEnd, error] = ReadDecimal(rest, value);
        const bool hasBareExponent = numberEnd != rest.data() + rest.size() && (*numberEnd == 'e' || *numberEnd == 'E');
        if (failed || error != std::errc() || hasBareExponent) {
            failed = true;
            return 0.0;
        }
        rest.remove_prefix(static_cast<std::size_t>(numberEnd - rest.data()));
        return value;
    }

private:
    std::string_view rest;
    bool failed = false;
};

/// Carries out the commands of path data, one after the other.
class PathParser {
public:
    PathParser(std::string_view data, ID2D1GeometrySink& target) : reader(data), sink(target) {}

    /// Up to the end of the data or the first number that cannot be read; a figure that is open then is closed.
    void Parse() {
        while (ReadCommand() && Execute()) previousKind = Kind();
        if (isFigureOpen) sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    }

private:
    /// The command without its case, which says whether coordinates are relative.
    char Kind() const { return IsRelative() ? static_cast<char>(command - 'a' + 'A') : command; }
    bool IsRelative() const { return command >= 'a'; }

    /// Reads the next command letter; numbers in its place repeat the command before. False at the end.
    bool ReadCommand() {
        constexpr std::string_view commands = "mMZzLlHhVvCcSsQqTtAa";
        reader.SkipSpaces();
        if (reader.IsAtEnd()) return false;
        if (commands.find(reader.Next()) != std::string_view::npos) {
            command = reader.Next();
            reader.Take();
            return true;
        }
        if (command != 0 && Kind() != 'Z') return true;
        Show(L"expected 'M' or 'm' command"); // there is nothing that could take these numbers
        return false;
    }

    /// False if a number of the command cannot be read; the command has no effect then.
    bool Execute() {
        if (!isFigureOpen && Kind() != 'M') Show(L"expected 'M' or 'm' command");
        switch (Kind()) {
        case 'M': return isFigureOpen ? DrawLine(ReadPoint()) : BeginFigure(ReadPoint());
        case 'L': return DrawLine(ReadPoint());
        case 'H': return DrawLine({Origin().x + reader.ReadNumber(), current.y});
        case 'V': return DrawLine({current.x, Origin().y + reader.ReadNumber()});
        case 'C': return DrawCubic(ReadPoint());
        case 'S': return DrawCubic(MirroredControl('C', 'S'));
        case 'Q': return DrawQuadratic(ReadPoint());
        case 'T': return DrawQuadratic(MirroredControl('Q', 'T'));
        case 'A': return DrawArc();
        default: return EndFigure();
        }
    }

    bool BeginFigure(DOUBLE2 start) {
        if (reader.HasFailed()) return false;
        sink.BeginFigure(start.ToPoint2F(), D2D1_FIGURE_BEGIN_FILLED);
        isFigureOpen = true;
        current = figureStart = start;
        return true;
    }

    bool EndFigure() {
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
        isFigureOpen = false;
        current = figureStart;
        return true;
    }

    bool DrawLine(DOUBLE2 end) {
        if (reader.HasFailed()) return false;
        sink.AddLine(end.ToPoint2F());
        current = end;
        return true;
    }

    bool DrawCubic(DOUBLE2 control1) {
        const DOUBLE2 control2 = ReadPoint();
        const DOUBLE2 end = ReadPoint();
        if (reader.HasFailed()) return false;
        sink.AddBezier({control1.ToPoint2F(), control2.ToPoint2F(), end.ToPoint2F()});
        lastControl = control2;
        current = end;
        return true;
    }

    bool DrawQuadratic(DOUBLE2 control) {
        const DOUBLE2 end = ReadPoint();
        if (reader.HasFailed()) return false;
        sink.AddQuadraticBezier({control.ToPoint2F(), end.ToPoint2F()});
        lastControl = control;
        current = end;
        return true;
    }

    bool DrawArc() {
        const double radiusX = ReadArcParameter();
        const double radiusY = ReadArcParameter();
        const double rotation = ReadArcParameter();
        const bool isLarge = std::trunc(ReadArcParameter()) != 0.0;
        const bool isClockwise = std::trunc(ReadArcParameter()) != 0.0;
        const DOUBLE2 end = ReadPoint();
        if (reader.HasFailed()) return false;
        GameEngine::OutputDebugString(L"WARNING: SVG Arcs not supported yet\n");
        sink.AddArc({end.ToPoint2F(),
                     {static_cast<float>(radiusX), static_cast<float>(radiusY)},
                     static_cast<float>(rotation),
                     isClockwise ? D2D1_SWEEP_DIRECTION_CLOCKWISE : D2D1_SWEEP_DIRECTION_COUNTER_CLOCKWISE,
                     isLarge ? D2D1_ARC_SIZE_LARGE : D2D1_ARC_SIZE_SMALL});
        current = end;
        return true;
    }

    /// The last control point seen from the other side, if the previous command was of one of these kinds.
    DOUBLE2 MirroredControl(char kind1, char kind2) const {
        return previousKind == kind1 || previousKind == kind2 ? current + (current - lastControl) : current;
    }

    DOUBLE2 Origin() const { return IsRelative() ? current : DOUBLE2(); }

    DOUBLE2 ReadPoint() {
        const double x = reader.ReadNumber();
        SkipSeparator(true);
        const double y = reader.ReadNumber();
        SkipSeparator(false);
        return Origin() + DOUBLE2(x, y);
    }

    double ReadArcParameter() {
        const double value = reader.ReadNumber();
        SkipSeparator(true);
        return value;
    }

    /// Skips spaces and one comma.
    void SkipSeparator(bool separatorRequired) {
        if (reader.HasFailed()) return;
        reader.SkipSpaces();
        if (reader.IsAtEnd() && separatorRequired) Show(L"expected comma or whitespace");
        reader.TakeLiteral(",");
    }

    TextReader reader;
    ID2D1GeometrySink& sink;
    char command = 0;
    char previousKind = 0;
    bool isFigureOpen = false;
    DOUBLE2 current;
    DOUBLE2 figureStart;
    DOUBLE2 lastControl;
};

/// The text between the first two double quotes after `spellings`, of which the first one that occurs counts.
bool ExtractQuoted(std::string_view text, std::initializer_list<std::string_view> spellings, std::string_view& quoted) {
    for (const std::string_view spelling : spellings) {
        const std::size_t place = text.find(spelling);
        if (place == std::string_view::npos) continue;
        const std::size_t open = text.find('"', place);
        if (open == std::string_view::npos) return false;
        const std::size_t close = text.find('"', open + 1);
        if (close == std::string_view::npos) return false;
        quoted = text.substr(open + 1, close - open - 1);
        return true;
    }
    return false;
}

/// Reads "function(number,number,...)" as far as the text follows that form, and returns how many numbers it found.
int ReadArguments(std::string_view text, std::string_view function, std::span<double> arguments) {
    TextReader reader(text);
    if (!reader.TakeLiteral(function)) return 0;
    int count = 0;
    std::string_view separator = "(";
    for (double& argument : arguments) {
        if (!reader.TakeLiteral(separator)) break;
        const double number = reader.ReadNumber();
        if (reader.HasFailed()) break;
        argument = number;
        separator = ",";
        ++count;
    }
    return count;
}

} // namespace

bool SVGLoader::LoadGeometryFromFile(String const& fileName, ID2D1Geometry** geometryPtrPtr) {
    std::ifstream file(platform::ToFilePath(fileName.C_str()), std::ios::binary);
    if (!file) {
        Show(String(L"Failed to load geometry from file ") + fileName);
        return false;
    }
    // Lines are joined with nothing between them, so that a number may continue on the next one.
    std::string svgText;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) line.pop_back();
        svgText += line;
    }

    std::string_view transformInfo;
    std::string_view geometryInfo;
    ExtractTransformInfo(svgText, transformInfo);
    if (!ExtractGeometryInfo(svgText, geometryInfo)) {
        Show(String(L"Malformed geometry information in file ") + fileName);
        return false;
    }
    const MATRIX3X2 matrix = ParseTransform(transformInfo);
    ID2D1Factory& factory = *GameEngine::GetSingleton()->GetD2DFactory();
    const std::unique_ptr<ID2D1PathGeometry> pathPtr = ParsePathData(factory, geometryInfo);
    std::unique_ptr<ID2D1Geometry> geometryPtr;
    if (pathPtr) geometryPtr = factory.CreateTransformedGeometry(*pathPtr, matrix.ToMatrix3x2F());
    if (!geometryPtr) {
        Show(L"CreateTransformedGeometry failed");
        return false;
    }
    *geometryPtrPtr = geometryPtr.release();
    return true;
}

bool SVGLoader::ExtractGeometryInfo(std::string_view svgText, std::string_view& geometryInfo) {
    const std::size_t path = svgText.find("<path");
    return path != std::string_view::npos &&
           ExtractQuoted(svgText.substr(path), {" d=", " d =", " D=", " D ="}, geometryInfo);
}

bool SVGLoader::ExtractTransformInfo(std::string_view svgText, std::string_view& transformInfo) {
    return ExtractQuoted(svgText, {"transform=", "transform =", "TRANSFORM=", "TRANSFORM ="}, transformInfo);
}

MATRIX3X2 SVGLoader::ParseTransform(std::string_view transformInfo) {
    MATRIX3X2 matrix = MATRIX3X2::CreateIdentityMatrix();
    if (transformInfo.empty()) return matrix;
    switch (transformInfo.front()) {
    case 'm': {
        std::array<double, 6> m{1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
        ReadArguments(transformInfo, "matrix", m);
        matrix = {m[0], m[1], m[2], m[3], m[4], m[5]};
        break;
    }
    case 't': {
        std::array<double, 2> by{0.0, 0.0};
        ReadArguments(transformInfo, "translate", by);
        matrix.SetAsTranslate(by[0], by[1]);
        break;
    }
    case 's': {
        std::array<double, 2> by{1.0, 1.0};
        if (ReadArguments(transformInfo, "scale", by) == 1) by[1] = by[0];
        matrix.SetAsScale(by[0], by[1]);
        break;
    }
    case 'r': {
        std::array<double, 3> about{0.0, 0.0, 0.0};
        const int count = ReadArguments(transformInfo, "rotate", about);
        if (count == 2) break; // neither the origin nor a point to turn about
        const DOUBLE2 centre(about[1], about[2]);
        matrix = MATRIX3X2::CreateTranslationMatrix(-centre) *
                 MATRIX3X2::CreateRotationMatrix(about[0] * 3.141592653589793 / 180.0) *
                 MATRIX3X2::CreateTranslationMatrix(centre);
        break;
    }
    default: Show(L"unsupported transform attribute");
    }
    return matrix;
}

std::unique_ptr<ID2D1PathGeometry> SVGLoader::ParsePathData(ID2D1Factory& factory, std::string_view geometryInfo) {
    std::unique_ptr<ID2D1PathGeometry> pathPtr = factory.CreatePathGeometry();
    if (!pathPtr) {
        Show(L"Failed to create path geometry");
        return nullptr;
    }
    ID2D1GeometrySink* sinkPtr = nullptr;
    if (pathPtr->Open(&sinkPtr) < 0) {
        Show(L"Failed to open path geometry");
        return nullptr;
    }
    PathParser(geometryInfo, *sinkPtr).Parse();
    sinkPtr->Close(); // fails for numbers beyond single precision; the transform fails after it
    return pathPtr;
}
