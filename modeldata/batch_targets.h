// Which models a batch command treats: the top model, the scope that the designer has chosen, and
// the models below.
#pragma once

#include <string>

#include "frame/services.h"

// The components in the scope "AsmAndPart", "Part", "Asm" or "Smt"; none for another name.
ComponentArray CollectByScope(const TopModel& top, const std::string& scope);

// The models of these components, with the top model where the scope has it: always with
// "AsmAndPart", with "Asm" only if the current model is an assembly itself. Frees the array.
ModelList TargetsByScope(const TopModel& top, const std::string& scope, ComponentArray components);

// Says that there is nothing to work on.
void ShowNoComponents();

// Shows the tree of the model that is current now afresh.
void RefreshCurrentTree();
