#include "game/entities/EnemyList.h"

#include "engine/GameEngine.h"
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
    DataFile file("Resources/Files/Data_Enemies.txt");
    if (!file.IsReadable()) {
        GameEngine::GetSingleton()->MessageBox("File <Data_Enemies.txt> Could not be found!");
        return;
    }
    // A record is a position and a type that closes it. One without a whole position waits for the rest of it.
    int x = 0;
    int y = 0;
    std::size_t count = 0;
    DataLine line;
    while (count < enemies.size() && file.ReadLine(line)) {
        if (line.label == "PositionX:     ") x = line.value;
        if (line.label == "PositionY:     ") y = line.value;
        if (line.label != "Type:          " || x == 0 || y == 0) continue;
        if (line.value == enemySkreel) enemies[count++] = std::make_unique<Skreel>(x, y, skreelBitmapPtr.get());
        if (line.value == enemyDorvak) enemies[count++] = std::make_unique<Dorvak>(x, y, dorvakBitmapPtr.get());
        x = y = 0;
    }
}
