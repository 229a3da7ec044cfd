// What kept pictures depend on beside their sources: the display and pygame's functions.
#pragma once

#include "engine/pixels/fingerprint.hpp"
#include "engine/pixels/surface.hpp"
#include "engine/pixels/surface_memory.hpp"

namespace tessora::render {

// Bumps when kept pictures may no longer be what pygame would give: another display, or functions
// of pygame's that a script has replaced. Zero while there is no display.
std::uint64_t environment();
// Lets go of the display: it may not be touched after pygame.quit().
void forget_environment();

// Whether the surface is just pixels in exactly the format that convert_alpha() gives.
bool has_alpha_format(const SurfaceMemory& memory);

// Whether multiplying by white changes no pixel in the installed pygame.
bool white_is_identity();

// Of the pixels as they are now; not for surfaces without any.
Fingerprint fingerprint(const SurfaceMemory& memory);

}  // namespace tessora::render
