// Fonts and the end of pygame: some versions crash when a font from before pygame.quit() is used
// after pygame was started again.
#pragma once

#include "engine/host/modules.hpp"

namespace tessora::host {

// Remembers that the font belongs to pygame as it runs now, unless it is known already.
void note_font(PyObject* font);

// Raises pygame.error for a font that was made before pygame was quit; notes an unknown one.
void check_font(PyObject* font);

}  // namespace tessora::host
