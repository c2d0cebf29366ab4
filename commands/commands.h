// The commands of this room: small ones that share nothing.
#pragma once

// A place-holder without an effect: asks the host for the current model and ignores the answer.
void ForTest();
