// Which kernels give the same bytes as the installed pygame.
#pragma once

#include "engine/pixels/kernels.hpp"
#include "engine/pixels/surface_memory.hpp"

namespace tessora::render {

// The kernel for an operation on a source multiplied by so many colours, onto surfaces with or
// without alpha, once it has given, in this process, what pygame's calls give for a table of every
// relation between the channels that its formula can tell apart, and for rows of 1 to 33 pixels;
// null when a byte differed. The table is gone through when the kernel is first asked for, and
// takes about two milliseconds.
Kernel proved_kernel(Operation operation, int factors, bool onto_alpha);

// The same for filling boxes on surfaces with or without alpha.
bool fills_alike(bool with_alpha);

// The format that was compared: that of surfaces with and without alpha of 32 bits.
const PixelMasks& proved_masks(bool with_alpha);

// A colour, 0xRRGGBBAA, as a pixel of a 32-bit format.
std::uint32_t pixel_of(const PixelMasks& masks, std::uint32_t color);

}  // namespace tessora::render
