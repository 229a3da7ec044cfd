// What a font tells of itself, as a part of the keys of its texts.
#pragma once

#include <string>

#include "engine/host/value.hpp"

namespace tessora::render {

// pygame's own font type, not a subclass: its methods run no script.
bool is_plain_font(host::Value font);

// Identity and readable state of a plain font, looked at once per tick of the script clock; empty
// for a font that cannot be told from others. Raises pygame.error for a font that was made before
// pygame was quit.
const std::string& font_state(host::Value font);

// Makes the font another one for all keys.
void renew_font(host::Value font);

void forget_fonts();

}  // namespace tessora::render
