// Which models a batch command treats: the top model, the scope that the designer has chosen, and
// the models below.
#pragma once

#include <functional>
#include <string>

#include "frame/services.h"

// The components in the scope "AsmAndPart", "Part", "Asm" or "Smt"; none for another name.
ComponentArray CollectByScope(const TopModel& top, const std::string& scope);

// What a batch does after collecting: calls `work` with each model of these components and its
// name. The top model joins where the scope has it (always with "AsmAndPart", with "Asm" only if
// the current model is an assembly itself); a model that a keyword of the dialog's input panel
// excludes is passed over. The panel is read when the models are known. Frees the array. False:
// there are no components, and the user was told.
bool ForEachTarget(const TopModel& top, const std::string& scope, ComponentArray components,
                   Dialog dialog, const char* keywordPanel,
                   const std::function<void(ProMdl model, const WideText& name)>& work);

// Refreshes the tree of the model that is current now.
void RefreshCurrentTree();
