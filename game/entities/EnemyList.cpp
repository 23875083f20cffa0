#include "game/entities/EnemyList.h"

#include "game/ChosenLevel.h"
#include "game/DataFile.h"
#include "game/SpriteSheet.h"
#include "game/entities/EnemyKinds.h"

EnemyList::EnemyList() : SlotList(slotCount) {
    for (const EnemyMaker& maker : EnemyMakers()) sheets.push_back(LoadSpriteSheet(maker.kindPtr->picture));
    ReadEnemyFile();
}

EnemyList::~EnemyList() {
    ForEach([](EnemyMaster& enemy) { enemy.Release(); });
}

void EnemyList::Tick(double deltaTime) {
    DeleteWhere([](EnemyMaster& enemy) { return enemy.IsDead(); });
    ForEach([=](EnemyMaster& enemy) { enemy.Tick(deltaTime); });
}

void EnemyList::Kill(int index) {
    if (At(index)) At(index)->Kill();
}

void EnemyList::Stomp(int index) {
    if (At(index)) At(index)->Stomp();
}

void EnemyList::SetMovingLeft(int index, bool movingLeft) {
    if (At(index)) At(index)->SetMovingLeft(movingLeft);
}

void EnemyList::ReadEnemyFile() {
    DataFile file(chosenLevel.enemyFile);
    DataRecord record;
    const std::span<const EnemyMaker> makers = EnemyMakers();
    while (CountSlots() < slotCount && file.ReadRecord("Type:          ", record)) {
        for (std::size_t i = 0; i < makers.size(); ++i) {
            if (makers[i].kindPtr->type == record.value) Add(makers[i].make(record.x, record.y, sheets[i].get()));
        }
    }
}
