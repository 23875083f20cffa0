#include "platform/NativeBackend.h"

#include "platform/cairo/CairoShapePainter.h"
#include "platform/clipper/CombinePolygons.h"
#include "platform/core/Backend.h"
#include "platform/fluidsynth/MidiDecoder.h"
#include "platform/openal/OpenAlDevice.h"
#include "platform/pango/PangoLine.h"
#include "platform/pango/PangoTextPainter.h"
#include "platform/sndfile/RecordingDecoder.h"

namespace platform {

const Backend& NativeBackend() {
    static const Backend backend = {
        .loadPicture = LoadPicture,
        .decodePicture = DecodePicture,
        .makeShapePainter = CairoShapePainter::Make,
        .makeTextPainter = PangoTextPainter::Make,
        .layOutLine = PangoLine::Make,
        .combinePolygons = CombinePolygons,
        .openRecording = OpenRecording,
        .openMidi = OpenMidi,
        .findSoundDevice = OpenAlDevice::MakeOpener,
    };
    return backend;
}

} // namespace platform
