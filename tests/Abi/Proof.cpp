#include "Proof.h"

#include <algorithm>
#include <iostream>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/Renderer.h>

#include "Picture.h"
#include "PluginSession.h"
#include "RenderTarget.h"

using namespace Corrade;
using namespace Magnum;

namespace VantrelProof {

namespace {

constexpr Vector2i PictureSize{800, 500};

// Another implementation of the same shaders may round differently; most of all the soft edges of wires, which are a
// pixel wide. An object that is missing or has another color changes far more.
constexpr int ToleratedStep = 48;
constexpr double ToleratedFraction = 0.0005;

Picture toPicture(const Image2D& image) {
    const std::size_t row = std::size_t(image.size().x()) * 4;
    const auto* const data = reinterpret_cast<const std::uint8_t*>(image.data().data());
    Picture picture{image.size().x(), image.size().y(), {}};
    for(int y = picture.height - 1; y >= 0; --y)
        picture.pixels.insert(picture.pixels.end(), data + y * row, data + (y + 1) * row);
    return picture;
}

bool check(const Picture& picture, const std::string& file) {
    const std::optional<Picture> golden = readPng(file);
    if(!golden) {
        std::cerr << "vantrel-proof: cannot read " << file << "\n";
        return false;
    }
    if(golden->width != picture.width || golden->height != picture.height) {
        std::cerr << "vantrel-proof: " << file << " is " << golden->width << " x " << golden->height
                  << " pixels large, the picture " << picture.width << " x " << picture.height << "\n";
        return false;
    }
    const Difference difference = compare(picture, *golden, ToleratedStep);
    const bool same = difference.fraction <= ToleratedFraction;
    (same ? std::cout : std::cerr) << "vantrel-proof: the picture is " << (same ? "" : "not ") << "the one in " << file
                                   << ": " << difference.fraction * 100 << " % of the pixels differ by more than "
                                   << ToleratedStep << ", the largest difference is " << difference.largest << "\n";
    return same;
}

bool keep(const Picture& picture, const std::string& file) {
    if(writePng(file, picture)) return true;
    std::cerr << "vantrel-proof: cannot write " << file << "\n";
    return false;
}

bool drawWith(PluginSession& session, const Options& options) {
    Containers::Pointer<AbstractProof> proof = session.instantiate();
    if(!proof) return false;
    RenderTarget target{PictureSize};
    proof->draw(target.multisampled(), target.size());
    target.resolve();
    const Picture picture = toPicture(target.read());
    if(GL::Renderer::error() != GL::Renderer::Error::NoError) {
        std::cerr << "vantrel-proof: the plugin left an OpenGL error behind\n";
        return false;
    }
    return (options.picture.empty() || keep(picture, options.picture)) &&
        (options.golden.empty() || check(picture, options.golden));
}

}

bool drawOnce(const Options& options) {
    PluginSession session{options.pluginDirectory};
    if(!session.load()) return false;
    const bool drawn = drawWith(session, options);
    return session.unload() && drawn;
}

}
