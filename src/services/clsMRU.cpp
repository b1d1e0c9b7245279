#include "services/clsMRU.h"

#include "ado/convert.h"
#include "platform/files.h"
#include "platform/profile_file.h"

#include <algorithm>

namespace zel::services {

namespace {

constexpr std::string_view section = "MRU";
constexpr std::size_t buffer = 128;
constexpr int mostFiles = 1000; // whatever a damaged file says

std::string keyOf(std::size_t place) {
    return "File" + std::to_string(place);
}

int countOf(std::string_view text) {
    return static_cast<int>(std::clamp(ado::numberAtHead(text), 0.0, double{mostFiles}));
}

} // namespace

void clsMRU::setMaxFileCount(int count) {
    capacity_ = std::clamp(count, 0, mostFiles);
    if (FileCount() > capacity_)
        names_.resize(static_cast<std::size_t>(capacity_));
}

std::string clsMRU::File(int place) const {
    return place >= 1 && place <= FileCount() ? names_[static_cast<std::size_t>(place - 1)] : std::string();
}

void clsMRU::AddFile(std::string name) {
    std::erase_if(names_, [&](const std::string& known) { return ado::equalIgnoringCase(known, name); });
    names_.insert(names_.begin(), std::move(name));
    setMaxFileCount(capacity_);
}

bool clsMRU::Save(const std::string& path) const {
    if (!files_.fileExists(path))
        return false;
    const auto put = [&](std::string_view key, const std::string& value) {
        platform::writeProfile(files_, path, section, key, value, buffer);
    };
    put("MaxCount", std::to_string(capacity_));
    put("Count", std::to_string(names_.size()));
    for (std::size_t i = 0; i < names_.size(); ++i)
        put(keyOf(i + 1), names_[i]);
    return true;
}

bool clsMRU::Load(const std::string& path) {
    if (!files_.fileExists(path))
        return false;
    const auto get = [&](std::string_view key, std::string_view absent) {
        return platform::readProfile(files_, path, section, key, absent, buffer);
    };
    names_.clear();
    setMaxFileCount(countOf(get("MaxCount", "8")));
    const int count = std::min(countOf(get("Count", "0")), capacity_);
    for (int place = 1; place <= count; ++place)
        names_.push_back(get(keyOf(static_cast<std::size_t>(place)), "0"));
    return true;
}

} // namespace zel::services
