#pragma once

#include <cstdlib>
#include <initializer_list>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Containers/Pointer.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Debug.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

namespace Implementation {
struct State;
}

// What is known of the GL context of the process: its version, its extensions, and which objects are bound, so that
// bindings that are there already are not made again. Platform::GLContext creates it. Use it, and everything else that
// calls GL, on the thread of the GL context only.
//
// The bindings are a cache: raw GL calls and other libraries go unnoticed by it. Call resetState() after them.
class CORRADE_VISIBILITY_EXPORT Context {
public:
    class Configuration {
    public:
        enum class Flag : UnsignedLong {
            // No log of the renderer and the version.
            QuietLog = 1ull << 60,
            // Also which optional features are missing.
            VerboseLog = 1ull << 61
        };
        typedef Containers::EnumSet<Flag> Flags;

        Flags flags() const { return _flags; }
        Configuration& setFlags(Flags flags) {
            _flags = flags;
            return *this;
        }

    private:
        Flags _flags;
    };

    // Parts of the cache for resetState().
    enum class State : UnsignedInt {
        Buffers = 1 << 0,
        // Unbinds pixel buffers instead of forgetting them.
        UnbindPixelBuffer = 1 << 1,
        // After this no framebuffer counts as bound: bind() the one to go on with.
        Framebuffers = 1 << 2,
        Meshes = 1 << 3,
        // Unbinds the vertex array of the mesh drawn last, so that foreign code does not change it by mistake.
        MeshVao = 1 << 4,
        PixelStorage = 1 << 6,
        Shaders = 1 << 8,
        Textures = 1 << 9,
        // For right before and right after foreign GL code.
        EnterExternal = UnbindPixelBuffer | MeshVao,
        ExitExternal = Buffers | Framebuffers | Meshes | MeshVao | PixelStorage | Shaders | Textures
    };
    typedef Containers::EnumSet<State> States;

    static bool hasCurrent();
    // Asserts that there is one.
    static Context& current();
    static void makeCurrent(Context* context);

    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    // Without any GL call. Objects are to be destroyed before.
    ~Context();

    Version version() const { return _version; }
    bool isVersionSupported(Version version) const { return version <= _version; }
    // The first supported one of the list, else GL210.
    Version supportedVersion(std::initializer_list<Version> versions) const;

    // True also for what is part of the context's version. E is one of Extensions.
    template<class E> bool isExtensionSupported() const { return _extensions & (1u << E::Index); }

    // These live as long as the GL context.
    Containers::StringView vendorString() const;
    Containers::StringView rendererString() const;
    Containers::StringView versionString() const;
    Containers::Array<Containers::StringView> extensionStrings() const;

    // Forgets the cached bindings, so that each is made again at the next use. Makes next to no GL calls itself.
    void resetState(States states = ~States{});

    Implementation::State& state() { return *_state; }

protected:
    explicit Context(NoCreateT);

    // The GL context has to be current. Prints an error and returns false if there is none or it is too old.
    // Extensions named in the environment variable MAGNUM_DISABLE_EXTENSIONS, divided by blanks, are not used.
    bool tryCreate(const Configuration& configuration);

private:
    bool detectVersion();
    void detectExtensions(Configuration::Flags flags);

    Version _version;
    // Bits in the order of Extensions.
    UnsignedInt _extensions{};
    Containers::Pointer<Implementation::State> _state;
};

CORRADE_ENUMSET_OPERATORS(Context::Configuration::Flags)
CORRADE_ENUMSET_OPERATORS(Context::States)

}

// Ends the process with a message when the current context lacks the version.
#define MAGNUM_ASSERT_GL_VERSION_SUPPORTED(version)                                                                    \
    do {                                                                                                               \
        if(!Magnum::GL::Context::current().isVersionSupported(version)) {                                              \
            Corrade::Utility::Error{} << "Magnum::GL: required version" << (version) << "is not supported";            \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while(false)
