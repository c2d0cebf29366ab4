// Labels with pictures, and whether the pictures are there.
#include "simhost/ui/label.h"

#include <fmt/format.h>

#include "simhost/core/disk.h"
#include "simhost/ui/dialogs.h"

namespace simhost {

namespace {

constexpr const char* kBitmap = "Bitmap";

int BigEndian(std::string_view bytes, std::size_t at) {
    unsigned value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
        value = value << 8 | static_cast<std::uint8_t>(bytes[i]);
    return static_cast<int>(value);
}

}  // namespace

Label::Label(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource)
    : Component(dialog, declared, resource) {
    const std::vector<std::string>* bitmap = resource.Find(name(), kBitmap);
    if (bitmap && !bitmap->empty()) picture_ = bitmap->front();
}

std::vector<std::string> Label::Picture() const {
    if (picture_.empty()) return Component::Picture();
    return {"( " + picture_ + " )"};
}

std::optional<PictureSize> PngSize(std::string_view bytes) {
    constexpr std::string_view kHead("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    if (bytes.size() < kHead.size() + 8 || bytes.substr(0, kHead.size()) != kHead) {
        return std::nullopt;
    }
    return PictureSize{BigEndian(bytes, kHead.size()), BigEndian(bytes, kHead.size() + 4)};
}

void CheckPictures(const DialogResource& resource, const std::string& fileName,
                   const std::filesystem::path& folder) {
    for (const ResourceAttribute& attribute : resource.attributes) {
        if (attribute.name != kBitmap) continue;
        const std::string name = attribute.values.empty() ? "" : attribute.values.front();
        bool found = false;
        const std::string bytes = ReadFile(
            folder / std::filesystem::path(std::u8string(name.begin(), name.end())), &found);
        if (found && PngSize(bytes)) continue;
        throw ResourceError(fmt::format("{}:{}: the picture {} {}", fileName, attribute.line, name,
                                        found ? "is no PNG" : "is not there"));
    }
}

}  // namespace simhost
