# One library for each folder of platform/ that calls libraries; what it calls is known to it alone.
function(quillfen_add_back_end name)
    file(GLOB sources CONFIGURE_DEPENDS platform/${name}/*.cpp)
    quillfen_add_library(${name} ${sources})
    target_link_libraries(quillfen_${name} PUBLIC quillfen_core PRIVATE ${ARGN})
endfunction()

quillfen_add_back_end(sdl PkgConfig::SDL2)
quillfen_add_back_end(cairo PkgConfig::CAIRO)
quillfen_add_back_end(pango PkgConfig::PANGOCAIRO quillfen_cairo) # text is painted on the surface of the shapes
quillfen_add_back_end(clipper PkgConfig::CLIPPER)
quillfen_add_back_end(image PkgConfig::SDL2_IMAGE PkgConfig::SDL2)
quillfen_add_back_end(openal PkgConfig::OPENAL ${CMAKE_DL_LIBS})
quillfen_add_back_end(sndfile PkgConfig::SNDFILE)

# The synthesiser's headers only: it is loaded when the first MIDI file is opened, by means of the window library.
pkg_check_modules(FLUIDSYNTH REQUIRED fluidsynth)
quillfen_add_back_end(fluidsynth PkgConfig::SDL2)
target_include_directories(quillfen_fluidsynth SYSTEM PRIVATE ${FLUIDSYNTH_INCLUDE_DIRS})

quillfen_add_back_end(native quillfen_cairo quillfen_pango quillfen_clipper quillfen_image quillfen_openal quillfen_sndfile
                      quillfen_fluidsynth)
target_link_libraries(quillfen_core PUBLIC Threads::Threads)

# The desktops of this system, for a program to choose from.
add_library(quillfen_desktops INTERFACE)
target_link_libraries(quillfen_desktops INTERFACE quillfen_sdl quillfen_scripted quillfen_native)
