#include <VantrelHost/Thumbnails.h>

#include <algorithm>
#include <chrono>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EditorData/EditorSceneData.h>

#include "Thumbnails/ImageThumbnail.h"
#include "Thumbnails/ThumbnailContent.h"
#include "Thumbnails/ThumbnailFiles.h"
#include "Thumbnails/ThumbnailStage.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// For finding out that pictures are as they were.
constexpr std::chrono::milliseconds Budget{4};
// A picture that nobody asked for in so many frames may go.
constexpr std::uint64_t FramesAsked = 2;
// On disk; about 40 MB.
constexpr std::size_t MaxFiles = 4096;

// All that a picture, or what is compiled for one, leans on.
constexpr Aspect Aspects[]{Aspect::Images, Aspect::Textures, Aspect::Shaders, Aspect::Pipelines, Aspect::Meshes,
    Aspect::MeshData, Aspect::Materials};

std::string keyOf(ResourceKind kind, Containers::StringView id) {
    return char('a' + int(kind)) + std::string{id.data(), id.size()};
}

// Places in a row of the texture.
Int rowLength(std::size_t capacity) {
    Int length = 1;
    while(std::size_t(length) * std::size_t(length) < capacity) ++length;
    return length;
}

} // namespace

// What lives in video memory. The stage is there while there is something to draw.
struct Thumbnails::Drawing {
    explicit Drawing(Int edge) {
        texture.setLabel("Thumbnails");
        texture.setMinificationFilter(SamplerFilter::Linear)
            .setMagnificationFilter(SamplerFilter::Linear)
            .setWrapping(SamplerWrapping::ClampToEdge)
            .setStorage(1, GL::TextureFormat::RGBA8, Vector2i{edge});
    }

    GL::Texture2D texture;
    std::unique_ptr<ThumbnailStage> stage;
};

Thumbnails::Thumbnails(
    EditorSceneData& scene, const ResourceManager& files, std::string folder, Int edge, std::size_t capacity):
    _scene(scene),
    _files(files), _folder{std::move(folder)}, _edge{edge}, _known{std::make_unique<KnownContents>()},
    _slots(capacity) {
    CORRADE_ASSERT(edge > 0 && capacity, "Thumbnails: expected an edge and a capacity of at least 1", );
    tidyThumbnails(_folder, MaxFiles);
}

Thumbnails::~Thumbnails() = default;

void Thumbnails::beginFrame() {
    ++_frame;
    const SceneRevisions& revisions = _scene.revisions();
    const bool isChanged = std::any_of(
        std::begin(Aspects), std::end(Aspects), [&](Aspect aspect) { return revisions.counter(aspect) > _revision; });
    // Others write the revision into all counters: of that nothing is newer.
    _revision = revisions.revision();
    if(isChanged) ++_generation;
    if(_entries.size() > 2 * _slots.size()) forgetUnasked();
    _isFull = findSlot() < 0;
}

// Those without a picture.
void Thumbnails::forgetUnasked() {
    for(auto i = _entries.begin(); i != _entries.end();)
        i = i->second.slot < 0 && i->second.askedIn + FramesAsked < _frame ? _entries.erase(i) : std::next(i);
}

std::optional<Thumbnail> Thumbnails::ask(ResourceKind kind, Containers::StringView id) {
    const auto found = _entries.try_emplace(keyOf(kind, id));
    Entry& entry = found.first->second;
    if(found.second) {
        entry.kind = kind;
        entry.id = {id.data(), id.size()};
    }
    entry.askedIn = _frame;
    if(isDue(entry)) _isWorkWaiting = true;
    if(entry.slot < 0) return {};
    const Range2D place{this->place(entry.slot)};
    const Vector2 size{Float(rowLength(_slots.size()) * _edge)};
    return Thumbnail{_drawing->texture.id(), {place.min() / size, place.max() / size}};
}

bool Thumbnails::isDue(const Entry& entry) const {
    return entry.generation != _generation && entry.askedIn + FramesAsked >= _frame && (entry.slot >= 0 || !_isFull);
}

Thumbnails::Entry* Thumbnails::nextDue() {
    const auto found =
        std::find_if(_entries.begin(), _entries.end(), [this](const auto& each) { return isDue(each.second); });
    return found == _entries.end() ? nullptr : &found->second;
}

bool Thumbnails::work() {
    const auto start = std::chrono::steady_clock::now();
    while(Entry* const entry = nextDue()) {
        if(refresh(*entry)) return true;
        if(std::chrono::steady_clock::now() - start > Budget) return false;
    }
    _isWorkWaiting = false;
    if(_drawing) _drawing->stage = nullptr;
    return false;
}

std::size_t Thumbnails::hashed() const { return _known->images.hashed() + _known->meshes.hashed(); }

// Whether it has another picture now.
bool Thumbnails::refresh(Entry& entry) {
    entry.generation = _generation;
    const ResourceNode* const node = _scene.resourceMaps().find(entry.kind, {entry.id.data(), entry.id.size()});
    const std::uint64_t content =
        node && node->index ? thumbnailContent(_scene.resources(), _files, entry.kind, node->index, *_known) : 0;
    if(content == entry.content) return false;
    if(!content) {
        leaveSlot(entry);
        return true;
    }
    if(!_drawing) _drawing = std::make_unique<Drawing>(_edge * rowLength(_slots.size()));
    const std::vector<Color4ub> pixels = pixelsOf(entry, content);
    if(entry.slot < 0) entry.slot = takeSlot();
    _slots[std::size_t(entry.slot)] = &entry;
    _isFull = findSlot() < 0;
    entry.content = content;
    _drawing->texture.setSubImage(0, place(entry.slot).min(),
        ImageView2D{PixelFormat::RGBA8Unorm, Vector2i{_edge}, {pixels.data(), pixels.size()}});
    return true;
}

std::vector<Color4ub> Thumbnails::pixelsOf(const Entry& entry, std::uint64_t content) {
    ThumbnailPixels pixels = readThumbnail(_folder, content, _edge);
    if(!pixels.empty()) {
        ++_loaded;
        return pixels;
    }
    ++_drawn;
    const Id index = _scene.resourceMaps().find(entry.kind, {entry.id.data(), entry.id.size()})->index;
    const SceneResources& resources = _scene.resources();
    if(entry.kind == ResourceKind::Image)
        pixels = imageThumbnail(resources.images[index], _edge);
    else {
        if(!_drawing->stage) _drawing->stage = std::make_unique<ThumbnailStage>(resources, _files, _edge);
        ThumbnailStage& stage = *_drawing->stage;
        pixels = entry.kind == ResourceKind::Mesh ? stage.drawMesh(index) : stage.drawMaterial(index);
    }
    writeThumbnail(_folder, content, _edge, pixels);
    return pixels;
}

// A free one, or the one of the picture that was asked for longest ago; -1 where all were asked for just now.
Int Thumbnails::findSlot() const {
    const auto age = [](const Entry* entry) { return entry ? entry->askedIn : 0; };
    const auto oldest =
        std::min_element(_slots.begin(), _slots.end(), [&](const Entry* a, const Entry* b) { return age(a) < age(b); });
    return *oldest && age(*oldest) + FramesAsked >= _frame ? -1 : Int(oldest - _slots.begin());
}

Int Thumbnails::takeSlot() {
    const Int slot = findSlot();
    CORRADE_INTERNAL_ASSERT(slot >= 0);
    if(Entry* const owner = _slots[std::size_t(slot)]) {
        leaveSlot(*owner);
        // It is due when somebody asks for it again.
        owner->generation = 0;
    }
    return slot;
}

void Thumbnails::leaveSlot(Entry& entry) {
    if(entry.slot >= 0) _slots[std::size_t(entry.slot)] = nullptr;
    entry.slot = -1;
    entry.content = 0;
    _isFull = false;
}

Range2Di Thumbnails::place(Int slot) const {
    const Int length = rowLength(_slots.size());
    return Range2Di::fromSize(Vector2i{slot % length, slot / length} * _edge, Vector2i{_edge});
}

std::vector<Color4ub> Thumbnails::read(ResourceKind kind, Containers::StringView id) {
    const auto found = _entries.find(keyOf(kind, id));
    if(found == _entries.end() || found->second.slot < 0) return {};
    GL::Framebuffer framebuffer{{{}, Vector2i{_edge * rowLength(_slots.size())}}};
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, _drawing->texture, 0)
        .mapForRead(GL::Framebuffer::ColorAttachment{0});
    const Image2D image = framebuffer.read(place(found->second.slot), {PixelFormat::RGBA8Unorm});
    const auto* const pixels = reinterpret_cast<const Color4ub*>(image.data().data());
    return {pixels, pixels + _edge * _edge};
}

} // namespace VantrelEngine
