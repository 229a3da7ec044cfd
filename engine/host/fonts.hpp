// Fonts and the end of pygame: some versions crash when a font from before pygame.quit() is used
// after pygame was started again.
#pragma once

#include "engine/host/modules.hpp"

namespace tessora::host {

// Remembers that the font belongs to pygame as it runs now, unless it is known already.
void note_font(Value font);

// Raises pygame.error, which tells that the font was made before pygame was quit.
[[noreturn]] void raise_old_font();

// Raises pygame.error for a font that was made before pygame was quit; notes an unknown one.
// Returns a number that no other font has had or will have; 0 for what is no font of pygame's.
std::uint64_t check_font(Value font);

// Whether pygame's own functions make system fonts, and can make them now.
bool makes_system_fonts();

}  // namespace tessora::host
