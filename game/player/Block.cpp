#include "game/player/Block.h"

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "game/Sound.h"
#include "game/StateReport.h"
#include "game/entities/EntityMaster.h"

namespace {

constexpr int size = 16; // level pixels, width and height

int ContentOf(int kind, int content) {
    if (content < contentNothing || content >= contentCount) content = contentNothing;
    return kind == blockQuestion && content == contentNothing ? contentCoin : content;
}

RECT2 CellAt(int column, int row) { return RECT2(column * size, row * size, column * size + size, row * size + size); }

} // namespace

Block::Block(int x, int y, Bitmap* blockSheetPtr, int kind, int hitCount, int heldContent, int contentVariant)
    : hits(hitCount), restY(y), content(ContentOf(kind, heldContent)), variant(contentVariant), sheetPtr(blockSheetPtr),
      position(x, y), clip(CellAt(0, 0)), state(kind >= 0 && kind < blockStateCount ? kind : blockBrick) {}

void Block::Tick(double tickSeconds) {
    constexpr double settleSpeed = 80.0; // level pixels / s
    if (hits == 0) {
        Finish();
        return;
    }
    questionCycle.Tick(10, 6);
    deltaTime = tickSeconds;
    position.y += settleSpeed * deltaTime;
    if (position.y > restY) position.y = restY;
    clip = CellAt(state == blockQuestion ? questionCycle.frame : 0, state);
}

void Block::Paint(MATRIX3X2 matView) {
    GameEngine* enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(position) * matView);
    enginePtr->DrawBitmap(sheetPtr, DOUBLE2(), clip);
    enginePtr->SetColor(COLOR(0, 0, 0, 255));
}

void Block::PaintDebug(MATRIX3X2 matView) {
    GameEngine* enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->SetColor(COLOR(255, 0, 0, 255));
    enginePtr->DrawRect(GetHitRect(), 1.0);
    enginePtr->SetColor(COLOR(0, 0, 0, 255));
}

void Block::Bump() {
    constexpr double jumpSpeed = 800.0; // level pixels / s, for one tick
    if (!finished) position.y -= jumpSpeed * deltaTime;
}

RECT2 Block::GetHitRect() const {
    if (finished && state != blockUsed) return {};
    return {position.x, position.y, position.x + size, position.y + size};
}

int Block::GetType() const {
    switch (state) {
    case blockQuestion: return blockTypeQuestion;
    case blockUsed: return blockTypeUsed;
    case blockBroken: return blockTypeBroken;
    case blockTreasure: return blockTypeTreasure;
    default: return blockTypeBrick;
    }
}

void Block::Report(StateReport& report) const {
    report.Add("state", state);
    report.Add("finished", finished);
    report.Add("hits", hits);
    report.Add("content", content);
    report.Add("variant", variant);
    report.Add("restY", restY);
    questionCycle.Report(report);
    report.Add("cell", DOUBLE2(clip.left / size, clip.top / size));
}

void Block::Finish() {
    if (state == blockBrick) {
        Sound::GetSingleton()->PlaySound(effectBlockBreak, soundPlay, 100);
        state = blockBroken;
    } else {
        state = blockUsed;
    }
    finished = true;
    --hits; // so that this happens once
}
