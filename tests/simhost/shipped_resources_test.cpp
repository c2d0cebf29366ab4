// The dialogs that are shipped: what their resources say that a user would feel, beyond what each
// command's own tests look at.
#include <gtest/gtest.h>

#include <string>

#include "simhost/core/disk.h"
#include "simhost/ui/resource.h"
#include "tests/support/places.h"

namespace simhost {
namespace {

std::string DefaultButton(const std::string& dialog) {
    bool found = false;
    const std::string file = "/text/resource/" + dialog + ".res";
    const std::string text = ReadFile(std::string(workbench::kSourceFolder) + file, &found);
    EXPECT_TRUE(found) << file;
    const DialogResource resource = ParseResource(text, dialog);
    const auto* button = resource.Find("", "DefaultButton");
    return button ? button->at(0) : "none";
}

// These write into every model of an assembly, and nothing of it can be undone: the Enter that ends
// the typing of a keyword must not start it.
TEST(ShippedDialogs, EnterOnlyClosesADialogThatWritesIntoManyModels) {
    EXPECT_EQ(DefaultButton("Relations"), "Close");
    EXPECT_EQ(DefaultButton("VxParams"), "Close");
}

}  // namespace
}  // namespace simhost
