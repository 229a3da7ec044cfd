// What may be played: a check before anything is changed.
#pragma once

#include "engine/host/value.hpp"

namespace tessora {

// Raises TypeError for an item that is no action, which is anything with a method SetTarget.
// An iterator, which can be walked only once, is not looked into.
void check_actions(host::Value group);

// The same for actions that are about to be given to a player. A player of a script's own, or one
// whose AddActions a script has replaced, takes what it likes.
void check_actions_for(host::Value player, host::Value actions);

}  // namespace tessora
