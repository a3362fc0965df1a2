#include "Magnum/GL/Context.h"

#include <iterator>

#include "Corrade/Containers/String.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/DefaultFramebuffer.h"
#include "Magnum/GL/Extensions.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/GL/Implementation/Versions.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/GL/Renderer.h"
#include "Magnum/GL/Version.h"
#include "Magnum/Math/Color.h"

namespace Magnum::GL {

namespace {

Context* currentContext = nullptr;

struct Extension {
    const char* name;
    // The version that it is a part of, or None.
    Version core;
};

// In the order of Extensions.
constexpr Extension KnownExtensions[]{{"GL_ARB_separate_shader_objects", Version::GL410},
    {"GL_ARB_texture_storage", Version::GL420}, {"GL_EXT_texture_filter_anisotropic", Version::None},
    {"GL_KHR_debug", Version::GL430}, {"GL_KHR_parallel_shader_compile", Version::None},
    {"GL_ARB_shader_draw_parameters", Version::GL460}};

Containers::StringView glString(GLenum name) { return reinterpret_cast<const char*>(glGetString(name)); }

bool contains(const Containers::Array<Containers::StringView>& names, Containers::StringView name) {
    for(const Containers::StringView i: names)
        if(i == name) return true;
    return false;
}

void logIndented(const char* headline, UnsignedInt extensions) {
    if(!extensions) return;
    Debug{} << headline;
    for(std::size_t i = 0; i != std::size(KnownExtensions); ++i)
        if(extensions & (1u << i)) Debug{} << "   " << KnownExtensions[i].name;
}

}

bool Context::hasCurrent() { return currentContext; }

Context& Context::current() {
    CORRADE_ASSERT(currentContext, "GL::Context::current(): no current context", *currentContext);
    return *currentContext;
}

void Context::makeCurrent(Context* context) { currentContext = context; }

Context::Context(NoCreateT): _version{Version::None} {}

Context::~Context() {
    if(currentContext == this) currentContext = nullptr;
}

Version Context::supportedVersion(std::initializer_list<Version> versions) const {
    for(const Version version: versions)
        if(isVersionSupported(version)) return version;
    return Version::GL210;
}

Containers::StringView Context::vendorString() const { return glString(GL_VENDOR); }
Containers::StringView Context::rendererString() const { return glString(GL_RENDERER); }
Containers::StringView Context::versionString() const { return glString(GL_VERSION); }

Containers::Array<Containers::StringView> Context::extensionStrings() const {
    GLint count = 0;
    glGetIntegerv(GL_NUM_EXTENSIONS, &count);
    Containers::Array<Containers::StringView> names{ValueInit, std::size_t(count)};
    for(GLint i = 0; i != count; ++i) names[i] = reinterpret_cast<const char*>(glGetStringi(GL_EXTENSIONS, i));
    return names;
}

bool Context::tryCreate(const Configuration& configuration) {
    CORRADE_ASSERT(_version == Version::None, "Platform::Context::tryCreate(): context already created", false);
    CORRADE_ASSERT(!currentContext, "GL::Context: Another context currently active", false);
    if(!detectVersion()) return false;

    if(!(configuration.flags() & Configuration::Flag::QuietLog)) {
        Debug{} << "Renderer:" << rendererString() << "by" << vendorString();
        Debug{} << "OpenGL version:" << versionString();
    }
    detectExtensions(configuration.flags());
    _state.emplace(*this);
    currentContext = this;
    DefaultFramebuffer::initialize();
    Renderer::setClearColor(Color4{0x1f / 255.0f});
    return true;
}

bool Context::detectVersion() {
    // They stay zero when there is no GL context, or one that is older than the query.
    GLint major = 0;
    GLint minor = 0;
    glGetIntegerv(GL_MAJOR_VERSION, &major);
    glGetIntegerv(GL_MINOR_VERSION, &minor);
    const Version version = Version(major * 100 + minor * 10);
    if(!Implementation::isKnownVersion(version)) {
        Error{} << "GL::Context: unsupported OpenGL version {" << Debug::nospace << major << Debug::nospace << ","
                << minor << Debug::nospace << "}";
        return false;
    }
    _version = version;
    return true;
}

void Context::detectExtensions(Configuration::Flags flags) {
    const Containers::Array<Containers::StringView> present = extensionStrings();
    const char* const environment = std::getenv("MAGNUM_DISABLE_EXTENSIONS");
    const auto unwanted = Containers::StringView{environment ? environment : ""}.splitOnWhitespaceWithoutEmptyParts();
    UnsignedInt disabled = 0;
    for(std::size_t i = 0; i != std::size(KnownExtensions); ++i) {
        const Extension& extension = KnownExtensions[i];
        if(contains(unwanted, extension.name))
            disabled |= 1u << i;
        else if(extension.core <= _version || contains(present, extension.name))
            _extensions |= 1u << i;
    }
    if(flags & Configuration::Flag::QuietLog) return;
    logIndented("Disabling extensions:", disabled);
    logIndented("Using optional features:", _extensions);
    constexpr UnsignedInt all = (1u << std::size(KnownExtensions)) - 1;
    if(flags & Configuration::Flag::VerboseLog) logIndented("Missing optional features:", all & ~_extensions);
}

void Context::resetState(States states) { _state->reset(states); }

}
