#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/LightManager.h>

#include "Renderer/Lights/ShadowOrder.h"
#include "Renderer/Lights/ShadowTiles.h"
#include "Renderer/TexelBuffer.h"

namespace VantrelEngine {

struct Scene;
struct Spheres;

// What the lights of a scene see, as depth maps in one texture: Shadows.glsl reads what this writes. What a map shows is
// kept for as long as its fit is the same and nothing in it moves. Where there is more to be drawn than a frame is meant to
// take, the lights come one after the other: a map shows meanwhile what it showed before, or lets all light through.
//
// Without shadows there is no texture, and nothing here calls the GL.
class ShadowMaps {
public:
    struct Map {
        LightShadow fit;
        ShadowTile tile;
        // Whether it shows what is there now, and whether it shows anything of its light.
        bool isCurrent = false, isShown = false;
        // As it was seen when it was drawn.
        Magnum::Matrix4 shown;
        // Frames in which others were drawn.
        Magnum::UnsignedInt waited = 0;
    };

    // Takes over the shadows of the lights as they were fitted last. Costs a step a map. A line where there is no room for
    // all.
    void update(Scene& scene);
    bool isEmpty() const { return _maps.empty(); }

    // Something that is drawn into maps was and is in these places, or anywhere.
    void touch(const Spheres& places);
    void touchAll();

    // Draws the maps that are not current, those that lie somewhere: draw(map) into the bound framebuffer, whose depth is
    // cleared, with the viewport and the scissor of the map; it returns what that took, in any unit. All of a light at
    // once, those that the viewer sees most of first, and no further light once the work is done that a frame may have.
    // Where any are drawn, the framebuffer is bound afterwards, and switches are those of RendererState{}. Returns how many.
    template<class Draw>
    std::size_t redraw(Scene& scene, const ShadowViewer& viewer, std::uint64_t workOfFrame, Draw draw) {
        findWaiting(scene, viewer);
        std::size_t count = 0;
        std::uint64_t work = 0;
        for(const WaitingLight& light: _waiting) {
            const bool isLate = work >= workOfFrame;
            for(std::size_t i = light.first; i != light.end; ++i) {
                Map& map = _maps[i];
                if(isLate) ++map.waited;
                if(isLate || !isWaiting(map)) continue;
                if(!count++) beginDrawing();
                clear(map.tile);
                work += draw(map);
                noteDrawn(map);
            }
        }
        if(count) endDrawing();
        return count;
    }
    // Whether there are some that the last call left for later.
    bool areWaiting() const;
    // What was drawn, for shaders: after redraw(). Costs a step a light and a map, and an upload only where something is
    // other than before.
    void describe(Scene& scene);

    // To their units.
    void bind();
    // Whether shaders get the comparison with a depth, as they do at first, or the depth itself. With maps.
    void setComparing(bool compares);

    std::uint64_t uploadedBytes() const { return _data.writtenBytes(); }

private:
    void place(Corrade::Containers::ArrayView<const LightShadow> fits);
    void allocate(Magnum::Int edge);
    void describe(const Map& map);
    void findWaiting(Scene& scene, const ShadowViewer& viewer);
    // One that lies nowhere is never drawn.
    static bool isWaiting(const Map& map) { return !map.isCurrent && map.tile.size; }
    static void noteDrawn(Map& map);
    void beginDrawing();
    void clear(const ShadowTile& tile);
    void endDrawing();

    std::vector<Map> _maps;
    // Those of which something is not current, as redraw() goes through them.
    std::vector<WaitingLight> _waiting;
    // What the maps asked for when they were placed, and where that is.
    std::vector<Magnum::Int> _sizes, _nextSizes;
    std::vector<ShadowTile> _tiles;
    Magnum::Int _edge = 0;
    bool _isShortageSaid = false;
    Magnum::GL::Texture2D _texture{Magnum::NoCreate};
    Magnum::GL::Framebuffer _framebuffer{Magnum::NoCreate};
    // As uploaded, and as they are now: kept for their memory.
    std::vector<Magnum::Vector4> _texels, _nextTexels;
    TexelBuffer _data{Magnum::GL::BufferTextureFormat::RGBA32F, "Renderer shadows"};
};

} // namespace VantrelEngine
