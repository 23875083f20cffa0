#include "tools/level_check/PlaceCheck.h"

#include "game/ChosenLevel.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"

#include <cmath>
#include <string>

namespace {

bool TouchesSolid(const SolidMap& map, RECT2 box) {
    for (int y = static_cast<int>(std::floor(box.top)); y < box.bottom; ++y) {
        for (int x = static_cast<int>(std::floor(box.left)); x < box.right; ++x) {
            if (map.IsSolid(x, y)) return true;
        }
    }
    return false;
}

} // namespace

void CheckPicture(const SolidMap& map, const platform::Picture& picture, const pictures::Palette& palette,
                  Findings& findings) {
    constexpr int cell = 32; // findings are joined in squares, so that one wrong edge does not print a thousand lines
    for (int top = 0; top < picture.height; top += cell) {
        for (int left = 0; left < picture.width; left += cell) {
            RECT2 bounds;
            int count = 0;
            for (int y = top; y < std::min(top + cell, picture.height); ++y) {
                for (int x = left; x < std::min(left + cell, picture.width); ++x) {
                    if (palette.IsSolid(picture.At(x, y)) == map.IsSolid(x, y)) continue;
                    const RECT2 pixel(x, y, x + 1.0, y + 1.0);
                    bounds = count == 0 ? pixel
                                        : RECT2(std::min(bounds.left, pixel.left), bounds.top,
                                                std::max(bounds.right, pixel.right), pixel.bottom);
                    ++count;
                }
            }
            if (count > 0) {
                findings.Add("outline and picture disagree about " + std::to_string(count) + " pixels here", bounds);
            }
        }
    }
}

void CheckPlaces(const SolidMap& map, Findings& findings) {
    const BlockList& blocks = *BlockList::GetSingleton();
    for (int i = 0; i < BlockList::blockCount; ++i) {
        if (TouchesSolid(map, blocks.GetHitRect(i))) {
            findings.Add("block " + std::to_string(i) + " stands in solid ground", blocks.GetHitRect(i));
        }
    }
    const EntityList& entities = *EntityList::GetSingleton();
    for (int i = 0; i < entities.GetSize(); ++i) {
        if (TouchesSolid(map, entities.GetHitRect(i))) {
            findings.Add("coin " + std::to_string(i) + " stands in solid ground", entities.GetHitRect(i));
        }
    }

    constexpr double quietDistance = 60.0;
    constexpr DOUBLE2 landingAfterEarlyFall(8.0, 184.0); // before the checkpoint he starts again at (0, 0)
    constexpr DOUBLE2 quietPlaces[] = {chosenLevel.start, landingAfterEarlyFall, chosenLevel.checkpoint.start,
                                       chosenLevel.room.start, chosenLevel.room.exit};
    const EnemyList& enemies = *EnemyList::GetSingleton();
    for (int i = 0; i < EnemyList::slotCount; ++i) {
        const std::string name = "enemy " + std::to_string(i);
        const RECT2 box = enemies.GetHitRect(i);
        if (!HasBox(box)) {
            findings.Add(name + " is missing", {});
            continue;
        }
        if (TouchesSolid(map, box)) findings.Add(name + " stands in solid ground", box);
        const int feet = static_cast<int>(box.bottom);
        if (!map.IsSolid(static_cast<int>((box.left + box.right) / 2), feet)) {
            findings.Add(name + " does not stand on the ground", box);
        }
        for (const DOUBLE2 place : quietPlaces) {
            const DOUBLE2 away = enemies.GetPosition(i) - place;
            if (std::abs(away.x) < quietDistance && std::abs(away.y) < quietDistance) {
                findings.Add(name + " waits where the hero appears", box);
            }
        }
    }
    if (enemies.GetType(EnemyList::shellSlot) != enemyDorvak) {
        findings.Add("the last enemy, who knocks over the others, is not the one with the shell",
                     enemies.GetHitRect(EnemyList::shellSlot));
    }
}
