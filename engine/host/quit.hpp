// The end of pygame: what was made before pygame.quit() may crash when it is used after it.
#pragma once

#include "engine/host/modules.hpp"

namespace tessora::host {

using QuitNotice = void (*)();

// Has `notice` called at every pygame.quit() from now on that follows a listen_for_quit().
void tell_of_quit(QuitNotice notice);

// Called by whoever keeps something that a quit ends: pygame forgets its listeners at every quit.
void listen_for_quit();

// How often pygame was quit while somebody listened.
unsigned quit_count();

}  // namespace tessora::host
