#include "VantrelHost/FilePictures.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <future>
#include <iterator>
#include <unordered_map>
#include <vector>

#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/ImageView.h>
#include <Magnum/PixelFormat.h>

#include "Data/Resources/ImageFile.h"
#include "Thumbnails/FileBytes.h"
#include "Thumbnails/ImageThumbnail.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// As images of a project.
constexpr std::size_t MaxBytes = std::size_t{256} << 20;

// Empty where there is none.
ThumbnailPixels readPicture(const std::string& path, Int edge, const std::atomic<bool>&) {
    const std::vector<char> bytes = fileBytes(path, MaxBytes);
    if(bytes.empty()) return {};
    std::string reason;
    SceneImage image;
    image.pixels = readImage({bytes.data(), bytes.size()}, reason);
    if(!image.pixels) return {};
    image.header.size = image.pixels->size();
    return imageThumbnail(image, edge);
}

} // namespace

struct FilePictures::State {
    struct Entry {
        // Its place in the texture; -1 for none.
        Int slot = -1;
        std::uint64_t askedIn = 0;
        // The file was looked at.
        bool isRead = false;
    };

    Int edge;
    std::size_t capacity;
    Reader reader;
    std::atomic<bool> isGivenUp{false};
    Int rowLength;
    GL::Texture2D texture{NoCreate};
    std::unordered_map<std::string, Entry> entries;
    // Paths of the pictures that are there; empty for none.
    std::vector<std::string> slots;
    std::uint64_t frame = 1;
    // The file that is being read.
    std::string path;
    std::future<ThumbnailPixels> work;
    // The files were others when it was begun.
    bool isStale = false;

    Vector2i place(Int slot) const { return Vector2i{slot % rowLength, slot / rowLength} * edge; }
    std::uint64_t ageOf(const std::string& owner) const { return owner.empty() ? 0 : entries.at(owner).askedIn; }
    void begin();
    bool take();
    bool leaveSlot(Entry& entry);
    Int takeSlot();
};

// The first one of those that were asked for just now.
void FilePictures::State::begin() {
    for(const auto& entry: entries) {
        if(entry.second.isRead || entry.second.askedIn + 1 < frame) continue;
        path = entry.first;
        isStale = false;
        work = std::async(std::launch::async, [this, file = path] { return reader(file, edge, isGivenUp); });
        return;
    }
}

bool FilePictures::State::take() {
    const ThumbnailPixels pixels = work.get();
    const auto found = entries.find(path);
    if(isStale || found == entries.end()) return false;
    found->second.isRead = true;
    if(pixels.empty()) return leaveSlot(found->second);
    if(!texture.id()) {
        texture = GL::Texture2D{};
        texture.setLabel("File pictures");
        texture.setMinificationFilter(SamplerFilter::Linear)
            .setMagnificationFilter(SamplerFilter::Linear)
            .setWrapping(SamplerWrapping::ClampToEdge)
            .setStorage(1, GL::TextureFormat::RGBA8, Vector2i{edge * rowLength});
    }
    const Int slot = found->second.slot < 0 ? takeSlot() : found->second.slot;
    if(slot < 0) return false;
    slots[std::size_t(slot)] = path;
    found->second.slot = slot;
    texture.setSubImage(
        0, place(slot), ImageView2D{PixelFormat::RGBA8Unorm, Vector2i{edge}, {pixels.data(), pixels.size()}});
    return true;
}

// Whether it had one.
bool FilePictures::State::leaveSlot(Entry& entry) {
    if(entry.slot < 0) return false;
    slots[std::size_t(entry.slot)].clear();
    entry.slot = -1;
    return true;
}

// A free one, or that of the picture that was asked for longest ago; -1 where all of them are seen just now.
Int FilePictures::State::takeSlot() {
    const auto oldest = std::min_element(
        slots.begin(), slots.end(), [this](const std::string& a, const std::string& b) { return ageOf(a) < ageOf(b); });
    if(ageOf(*oldest) + 1 >= frame) return -1;
    if(!oldest->empty()) entries.erase(*oldest);
    return Int(oldest - slots.begin());
}

FilePictures::FilePictures(Int edge, std::size_t capacity, Reader reader): _state{std::make_unique<State>()} {
    _state->reader = reader ? std::move(reader) : Reader{readPicture};
    _state->edge = edge;
    _state->capacity = capacity;
    _state->rowLength = Int(std::ceil(std::sqrt(double(capacity))));
    _state->slots.resize(capacity);
}

FilePictures::~FilePictures() { _state->isGivenUp = true; }

bool FilePictures::update(bool waits) {
    State& state = *_state;
    ++state.frame;
    if(!state.work.valid()) state.begin();
    if(!state.work.valid()) return false;
    if(!waits && state.work.wait_for(std::chrono::seconds{0}) != std::future_status::ready) return false;
    return state.take();
}

std::optional<Thumbnail> FilePictures::ask(const std::string& path) {
    State& state = *_state;
    State::Entry& entry = state.entries[path];
    entry.askedIn = state.frame;
    if(entry.slot < 0) return {};
    const Float length = Float(state.edge * state.rowLength);
    return Thumbnail{state.texture.id(),
        Range2D::fromSize(Vector2{state.place(entry.slot)} / length, Vector2{Float(state.edge) / length})};
}

bool FilePictures::isBusy() const {
    const auto isWaiting = [this](const auto& entry) {
        return !entry.second.isRead && entry.second.askedIn + 1 >= _state->frame;
    };
    return _state->work.valid() || std::any_of(_state->entries.begin(), _state->entries.end(), isWaiting);
}

void FilePictures::forget() {
    for(auto i = _state->entries.begin(); i != _state->entries.end();) {
        i->second.isRead = false;
        i = i->second.slot < 0 ? _state->entries.erase(i) : std::next(i);
    }
    _state->isStale = true;
}

} // namespace VantrelEngine
