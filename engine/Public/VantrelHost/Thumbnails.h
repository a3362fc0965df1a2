#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/EngineData/ResourceMaps.h>

namespace VantrelEngine {

class EditorSceneData;
class ResourceManager;
struct KnownContents;

// Where a picture is: a texture of the GL, and the part of it, from the bottom left, from 0 to 1.
struct Thumbnail {
    Magnum::UnsignedInt texture;
    Magnum::Range2D part;
};

// Small square pictures of the resources of a scene: a mesh as it lies, from the front, the right and above; a material on
// a sphere; an image as a whole, over a chequered ground.
//
// Panels ask each frame for those that they show. What is not there yet is made later, when whoever draws the frames has
// nothing else to do, one at a time. A picture belongs to what the resource was compiled to: it is made again when that
// is another, and the old one is shown meanwhile. As many are kept as there is room for, those that were asked for last;
// all of them lie as files in a folder, from which they come back without being drawn.
//
// With the GL context that is current at the first work(), and destroyed with it.
class CORRADE_VISIBILITY_EXPORT Thumbnails {
public:
    // The scene and the files outlive it. The folder need not be there; without a name nothing is kept on disk. Pixels
    // along an edge, and the number of pictures in video memory, both at least 1.
    explicit Thumbnails(EditorSceneData& scene, const ResourceManager& files, std::string folder, Magnum::Int edge = 96,
        std::size_t capacity = 256);
    ~Thumbnails();
    Thumbnails(const Thumbnails&) = delete;
    Thumbnails& operator=(const Thumbnails&) = delete;

    // Begins a frame, after what changed in the scene was compiled, and before anybody takes notice of the revisions.
    void beginFrame();
    // The picture of a mesh, a material or an image by its id in the document; nothing while it is not there, and for
    // what cannot have one. Valid for this frame.
    std::optional<Thumbnail> ask(ResourceKind kind, Corrade::Containers::StringView id);

    // Whether something is asked for that work() could make.
    bool isWorkWaiting() const { return _isWorkWaiting; }
    // Makes one, if one is waiting; whether there is a new picture now. Takes as long as that, and otherwise a few
    // milliseconds. Switches of the GL are those of RendererState{} afterwards, and another framebuffer is bound.
    bool work();

    // Pixels of the edges. Rows upwards; empty where ask() has nothing.
    Magnum::Int edge() const { return _edge; }
    std::vector<Magnum::Color4ub> read(ResourceKind kind, Corrade::Containers::StringView id);
    // Since the construction: pictures that were drawn, and that came from the folder.
    std::size_t drawn() const { return _drawn; }
    std::size_t loaded() const { return _loaded; }
    // The same of images and meshes that were gone through to find out whether they are others than before.
    std::size_t hashed() const;

private:
    struct Entry {
        ResourceKind kind;
        std::string id;
        // Of what the picture was made; 0 for none.
        std::uint64_t content = 0;
        // Of the scene, when the content was looked at last.
        std::uint32_t generation = 0;
        std::uint64_t askedIn = 0;
        // Its place in the texture; -1 for none.
        Magnum::Int slot = -1;
    };
    struct Drawing;

    bool isDue(const Entry& entry) const;
    Entry* nextDue();
    bool refresh(Entry& entry);
    std::vector<Magnum::Color4ub> pixelsOf(const Entry& entry, std::uint64_t content);
    Magnum::Int takeSlot();
    Magnum::Int findSlot() const;
    void leaveSlot(Entry& entry);
    void forgetUnasked();
    Magnum::Range2Di place(Magnum::Int slot) const;

    EditorSceneData& _scene;
    const ResourceManager& _files;
    const std::string _folder;
    const Magnum::Int _edge;
    std::unique_ptr<Drawing> _drawing;
    const std::unique_ptr<KnownContents> _known;

    std::unordered_map<std::string, Entry> _entries;
    // Whose picture is there; null for none.
    std::vector<Entry*> _slots;
    std::uint64_t _frame = 0;
    std::uint32_t _generation = 1;
    std::uint32_t _revision = 0;
    bool _isFull = false;
    bool _isWorkWaiting = false;
    std::size_t _drawn = 0, _loaded = 0;
};

} // namespace VantrelEngine
