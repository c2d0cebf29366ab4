// Labels: texts, and pictures that lie beside the resource. Attribute of the resource:
// (Logo.Bitmap "Logo.png"), a PNG of \text\resource.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simhost/ui/component.h"

namespace simhost {

class Label : public Component {
public:
    static constexpr const char* kKind = "Label";
    Label(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    const std::string& picture() const { return picture_; }  // a file's name; empty: it has none
    std::vector<std::string> Picture() const override;

private:
    std::string picture_;
};

struct PictureSize {
    int width = 0, height = 0;  // pixels
};
// From the head of a PNG file's bytes; nothing if they are none.
std::optional<PictureSize> PngSize(std::string_view bytes);

// Throws ResourceError, with its line in `fileName`, for a picture of a label that is not a PNG in
// the real folder of the resources.
void CheckPictures(const DialogResource& resource, const std::string& fileName,
                   const std::filesystem::path& folder);

}  // namespace simhost
