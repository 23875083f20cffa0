// The hero's changes of form, his star power, and how he is drawn.

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "game/Actions.h"
#include "game/ChosenLevel.h"
#include "game/Level.h"
#include "game/Sound.h"
#include "game/player/Pelko.h"

#include <algorithm>

namespace {
constexpr int flickerTicks = 10; // each of the two forms shows for so long during a change
constexpr int starTicks = 300;

// The sprite sheet: bands of a big row above a small one. The first band has the hero's own colours, the next eight
// those of the star; the fire form's big rows lie two bands below those of the big form.
constexpr int fireBand = 2;
constexpr int starBands = 8;
constexpr int paintsPerSkip = 60; // the star's colours skip one band every so many paints
} // namespace

// Changes of form

bool Pelko::IsFormChanging() const { return std::ranges::find(formChanges, true) != formChanges.end(); }

void Pelko::BeginFormChangeTick() {
    transforming = IsFormChanging();
    if (transforming) return;
    flickers = false;
    formChangeCounter = formChangeTicks;
}

void Pelko::TickShrinking() {
    if (GetFormState() == heroSmall && !transforming) return;
    invulnerabilityCounter = formChangeTicks;
    if (form == heroBig || formChanges[bigToSmall]) AnimateFormChange(bigToSmall);
    if (form == heroFire || formChanges[fireToSmall]) AnimateFormChange(fireToSmall);
}

void Pelko::TickGrowing() {
    if (form == heroFire && !transforming) return;
    invulnerabilityCounter = formChangeTicks;
    if (GetFormState() == heroSmall || formChanges[smallToBig]) {
        AnimateFormChange(smallToBig);
    } else if (form == heroBig || formChanges[bigToFire]) {
        AnimateFormChange(bigToFire);
    }
}

void Pelko::TickChanged() {
    formChanges = {};
    transforming = false;
    invulnerabilityCounter = 0;
    invulnerable = false;
    motion.velocity = {};
    state = heroStanding;
}

void Pelko::AnimateFormChange(FormChange change) {
    const auto [oldForm, newForm] = changedForms[change];
    formChanges[change] = true;
    if (--formChangeCounter < 1) {
        form = newForm;
        state = heroChanged;
        return;
    }
    if (formChangeCounter % flickerTicks == 0) flickers = !flickers;
    // The form itself flickers: whoever asks for it meanwhile, boxes and rays too, gets the one that shows.
    form = flickers ? oldForm : newForm;
}

void Pelko::EndFormChange() {
    const auto running = std::ranges::find(formChanges, true);
    if (running == formChanges.end()) return;
    form = changedForms[static_cast<std::size_t>(running - formChanges.begin())].newForm;
    formChanges = {};
}

// Star power

void Pelko::ActivateStar() {
    Sound::GetSingleton()->PlayMusic(musicStarrush, soundPlay, volumeUnchanged);
    starCounter = starTicks;
    starActive = true;
}

void Pelko::UpdateStar() {
    --starCounter;
    starActive = starCounter >= 0; // on its last tick, too
    if (starCounter != 0) return;
    if (Level::GetSingleton()->IsFlagDown()) {
        Sound::GetSingleton()->PlayMusic(musicCastleComplete, soundPlay, volumeUnchanged);
    } else {
        PlayMusicForTime(chosenLevel.music);
    }
}

// Painting

void Pelko::Paint(MATRIX3X2 matView) {
    if (IsHeld(Action::walkLeft)) facingRight = false;
    if (IsHeld(Action::walkRight)) facingRight = true;

    // centre the cell on the position's line, mirror it there, put it in the level, then apply the camera
    const MATRIX3X2 matCenter = MATRIX3X2::CreateTranslationMatrix(-width / 2, 0.0);
    const MATRIX3X2 matScale = MATRIX3X2::CreateScalingMatrix(facingRight ? 1.0 : -1.0, 1.0);
    const MATRIX3X2 matTranslate = MATRIX3X2::CreateTranslationMatrix(motion.position);
    GameEngine::GetSingleton()->SetWorldMatrix(matCenter * matScale * matTranslate * matView);
    PaintSprite();

    for (std::optional<Fireball>& fireball : fireballs) {
        if (fireball) fireball->Paint(matView);
    }
}

void Pelko::PaintSprite() {
    constexpr int bandHeight = bigHeight + smallHeight;
    const int bandTop = starActive ? NextStarBand() * bandHeight : 0;
    GameEngine::OutputDebugString(String(L"") + starCounter + L" // " + starTickCounter + L"\n");

    RECT clip;
    clip.left = frameColumn * width;
    clip.right = clip.left + width;
    switch (form) {
    case heroSmall: clip.top = bandTop + bigHeight; break;
    case heroBig: clip.top = bandTop; break;
    case heroFire: clip.top = bandTop + fireBand * bandHeight; break;
    default: return; // there is no picture of any other form
    }
    clip.bottom = clip.top + Height();
    GameEngine::GetSingleton()->DrawBitmap(spriteSheetPtr.get(), 0, 0, clip);
}

int Pelko::NextStarBand() {
    ++starTickCounter;
    if (starTickCounter % paintsPerSkip == 0) ++starPalette;
    starPalette = starPalette % starBands + 1;
    return starPalette;
}

void Pelko::PaintDebug(MATRIX3X2 matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    const RECT2 verticalBox = GetHitRectVertical();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->SetColor(COLOR(0, 0, 200, 100));
    enginePtr->FillRect(verticalBox);
    enginePtr->SetColor(COLOR(0, 200, 0, 100));
    enginePtr->FillRect(GetHitRectHorizontal());
    enginePtr->SetColor(COLOR(0, 0, 255, 255));
    enginePtr->DrawRect(verticalBox, 1.0);
}
