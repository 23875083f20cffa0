#include "game/entities/EnemyList.h"

#include "game/ChosenLevel.h"
#include "game/DataFile.h"
#include "game/SpriteSheet.h"
#include "game/entities/Dorvak.h"
#include "game/entities/Skreel.h"

EnemyList::EnemyList()
    : skreelBitmapPtr(LoadSpriteSheet("Resources/Images/Skreel.bmp")),
      dorvakBitmapPtr(LoadSpriteSheet("Resources/Images/Dorvak.bmp")) {
    ReadEnemyFile();
}

EnemyList::~EnemyList() {
    for (const auto& enemyPtr : enemies)
        if (enemyPtr) enemyPtr->Release();
}

void EnemyList::Tick(double deltaTime) {
    for (auto& enemyPtr : enemies) {
        if (!enemyPtr) continue;
        if (enemyPtr->IsDead())
            enemyPtr.reset();
        else
            enemyPtr->Tick(deltaTime);
    }
}

void EnemyList::Paint(MATRIX3X2 matView) {
    for (const auto& enemyPtr : enemies)
        if (enemyPtr) enemyPtr->Paint(matView);
}

void EnemyList::PaintDebug(MATRIX3X2 matView) {
    for (const auto& enemyPtr : enemies)
        if (enemyPtr) enemyPtr->PaintDebug(matView);
}

void EnemyList::Kill(int index) {
    if (At(index)) At(index)->Kill();
}

void EnemyList::Stomp(int index) {
    if (At(index)) At(index)->Stomp();
}

void EnemyList::Move(int index, DOUBLE2 delta) {
    if (At(index)) At(index)->Move(delta);
}

void EnemyList::SetMovingLeft(int index, bool movingLeft) {
    if (At(index)) At(index)->SetMovingLeft(movingLeft);
}

void EnemyList::ResetVelocity(int index, bool horizontal, bool vertical) {
    if (At(index)) At(index)->ResetVelocity(horizontal, vertical);
}

RECT2 EnemyList::GetHitRect(int index) const { return At(index) ? At(index)->GetHitRect() : RECT2(); }

DOUBLE2 EnemyList::GetPosition(int index) const { return At(index) ? At(index)->GetPosition() : DOUBLE2(); }

int EnemyList::GetType(int index) const { return At(index) ? At(index)->GetType() : -1; }

void EnemyList::Report(int index, StateReport& report) const {
    if (At(index)) At(index)->Report(report);
}

void EnemyList::ReadEnemyFile() {
    DataFile file(chosenLevel.enemyFile);
    DataRecord record;
    std::size_t count = 0;
    while (count < enemies.size() && file.ReadRecord("Type:          ", record)) {
        const auto [x, y, type] = record;
        if (type == enemySkreel) enemies[count++] = std::make_unique<Skreel>(x, y, skreelBitmapPtr.get());
        if (type == enemyDorvak) enemies[count++] = std::make_unique<Dorvak>(x, y, dorvakBitmapPtr.get());
    }
}
