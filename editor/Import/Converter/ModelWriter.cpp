#include "Import/Converter/ModelWriter.h"

#include <algorithm>
#include <cmath>
#include <map>

#include <VantrelHost/DocumentWriter.h>

#include "Import/Converter/GlbWriter.h"
#include "Import/Converter/MaterialWriter.h"
#include "Import/Converter/Shadows.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

// Of a project, objects and resources of a kind.
constexpr std::size_t MaximumCount = 65534;
constexpr float Pi = 3.14159265f;

void begin(JsonBuilder& json, const std::string& name) {
    json.setMember("format", JsonValue{1});
    json.setMember("name", json.text(name));
    for(const char* const section:
        {"images", "textures", "shaders", "pipelines", "materials", "meshes", "skins", "animations", "objects"})
        json.addSection(section);
}

void finish(const JsonBuilder& json, OutputFolder& output) {
    std::string text;
    const std::string error = VantrelEngine::writeDocument(json.document(), text);
    if(!error.empty()) throw Unusable{"the result cannot be written: " + error};
    output.finish(text);
}

std::string objectId(int node) { return "object" + std::to_string(node + 1); }

// How many of a list have a place; says so where they are not all.
std::size_t counted(std::size_t count, std::size_t maximum, const char* what, Messages& messages) {
    if(count > maximum)
        messages.warn(
            "of " + std::to_string(count) + ' ' + what + " only " + std::to_string(maximum) + " are imported");
    return std::min(count, maximum);
}

class Writer {
public:
    explicit Writer(const Model& model, const std::string& name, OutputFolder& output, Messages& messages):
        _model{model}, _name{name}, _output{output}, _messages{messages}, _materials{_json, output}, _shadows{model} {}

    void write() {
        begin(_json, _name);
        _nodeCount = fittingNodes();
        writeMaterials();
        writeMeshes();
        writeSkins();
        writeAnimations();
        writeObjects();
        finish(_json, _output);
    }

private:
    struct MeshIds {
        std::string mesh, material;
    };

    static bool hasOwnLight(const Node& node) { return node.light && node.light->type != LightType::Point; }

    // The root takes a place, too, and so do lights that are objects of their own.
    std::size_t fittingNodes() const {
        std::size_t objects = 1, count = 0;
        for(const Node& node: _model.nodes) {
            objects += hasOwnLight(node) ? 2 : 1;
            if(objects > MaximumCount) break;
            ++count;
        }
        return counted(_model.nodes.size(), count, "objects", _messages);
    }

    void writeMaterials() {
        const std::size_t count = counted(_model.materials.size(), MaximumCount - 1, "materials", _messages);
        for(std::size_t i = 0; i != count; ++i) {
            _materialIds.push_back(_materials.add(_model, _model.materials[i]));
            _messages.progress(0.7 + 0.1 * double(i) / double(count), "writing materials");
        }
    }

    std::string materialOf(const Mesh& mesh) {
        const bool hasOne = mesh.material != Nothing && std::size_t(mesh.material) < _materialIds.size();
        return hasOne ? _materialIds[std::size_t(mesh.material)] : _materials.addDefault();
    }

    // Equal meshes are one, so that they are drawn together.
    void writeMeshes() {
        const std::size_t count = counted(_model.meshes.size(), MaximumCount, "meshes", _messages);
        std::map<std::string, std::string> ids;
        for(std::size_t i = 0; i != count; ++i) {
            const Mesh& mesh = _model.meshes[i];
            const std::string bytes = meshFile(mesh);
            const std::string file = _output.add(bytes.data(), bytes.size(), "glb");
            const auto [found, isNew] = ids.emplace(file, "mesh" + std::to_string(ids.size()));
            if(isNew) _json.add("meshes", found->second, resource(mesh.name, file));
            _meshes.push_back({found->second, materialOf(mesh)});
            _messages.progress(0.8 + 0.15 * double(i) / double(count), "writing meshes");
        }
    }

    // An entry; more can be added to it.
    JsonValue resource(const std::string& name, const std::string& file) {
        JsonValue entry = _json.object();
        _json.set(entry, "name", name);
        _json.set(entry, "file", file);
        return entry;
    }

    JsonValue objectIds(const std::vector<int>& nodes) {
        JsonValue ids = _json.list();
        for(const int node: nodes) _json.append(ids, _json.text(objectId(node)));
        return ids;
    }

    bool isWritten(int node) const { return std::size_t(node) < _nodeCount; }

    void writeSkins() {
        const std::size_t count = counted(_model.skins.size(), MaximumCount, "skins", _messages);
        for(std::size_t i = 0; i != count; ++i) {
            const Skin& skin = _model.skins[i];
            if(!std::all_of(skin.joints.begin(), skin.joints.end(), [&](int node) { return isWritten(node); })) {
                _messages.warn("skin " + quoted(skin.name) + " is left out: not all of its joints are imported");
                continue;
            }
            const std::string bytes = skinFile(skin);
            JsonValue entry = resource(skin.name, _output.add(bytes.data(), bytes.size(), "glb"));
            _json.set(entry, "joints", objectIds(skin.joints));
            _json.add("skins", "skin" + std::to_string(i), std::move(entry));
        }
    }

    void writeAnimations() {
        const std::size_t count = counted(_model.animations.size(), MaximumCount, "animations", _messages);
        for(std::size_t i = 0; i != count; ++i) {
            const AnimationFile file = animationFile(_model.animations[i]);
            if(!std::all_of(file.targets.begin(), file.targets.end(), [&](int node) { return isWritten(node); })) {
                _messages.warn("animation " + quoted(_model.animations[i].name) +
                    " is left out: not all of what it moves is imported");
                continue;
            }
            JsonValue entry =
                resource(_model.animations[i].name, _output.add(file.bytes.data(), file.bytes.size(), "glb"));
            _json.set(entry, "targets", objectIds(file.targets));
            const std::string id = "animation" + std::to_string(i);
            _json.add("animations", id, std::move(entry));
            _animationIds.push_back(id);
        }
    }

    void writeObjects() {
        JsonValue components = _json.list();
        for(const std::string& id: _animationIds) _json.append(components, animationComponent(id));
        _json.add("objects", "object0", object(_name, "", {}, std::move(components)));
        for(std::size_t i = 0; i != _nodeCount; ++i) {
            const Node& node = _model.nodes[i];
            const std::string id = objectId(int(i));
            _json.add("objects", id, object(node.name, objectId(node.parent), node, componentsOf(node)));
            if(hasOwnLight(node)) addLightObject(node, id);
        }
    }

    JsonValue object(const std::string& name, const std::string& parent, const Node& place, JsonValue components) {
        JsonValue entry = _json.object();
        _json.set(entry, "name", name);
        _json.set(entry, "parent", parent);
        _json.set(entry, "translation", _json.numbers(place.translation));
        const Quaternion& rotation = place.rotation;
        _json.set(entry, "rotation", _json.numbers(Vector4{rotation.vector(), rotation.scalar()}));
        _json.set(entry, "scaling", _json.numbers(place.scaling));
        _json.set(entry, "components", std::move(components));
        return entry;
    }

    // Lights of the file shine along -Z, those of the project along -Y.
    void addLightObject(const Node& node, const std::string& id) {
        Node turned;
        turned.rotation = {{std::sqrt(0.5f), 0.0f, 0.0f}, std::sqrt(0.5f)};
        JsonValue components = _json.list();
        _json.append(components, lightComponent(*node.light));
        _json.add("objects", id + "Light", object(node.name + " Light", id, turned, std::move(components)));
    }

    JsonValue componentsOf(const Node& node) {
        JsonValue components = _json.list();
        for(const int mesh: node.meshes)
            if(std::size_t(mesh) < _meshes.size()) _json.append(components, meshComponent(node, mesh));
        if(node.light && !hasOwnLight(node)) _json.append(components, lightComponent(*node.light));
        if(node.camera) _json.append(components, viewComponent(*node.camera));
        return components;
    }

    JsonValue component(const char* type, JsonValue values) {
        JsonValue entry = _json.object();
        _json.set(entry, "type", type);
        _json.set(entry, "active", JsonValue{true});
        _json.set(entry, type, std::move(values));
        return entry;
    }

    JsonValue meshComponent(const Node& node, int index) {
        const Mesh& mesh = _model.meshes[std::size_t(index)];
        JsonValue values = _json.object();
        _json.set(values, "mesh", _meshes[std::size_t(index)].mesh);
        _json.set(values, "material", _meshes[std::size_t(index)].material);
        if(canMove(node, mesh)) _json.set(values, "skin", "skin" + std::to_string(node.skin));
        return component("mesh", std::move(values));
    }

    bool canMove(const Node& node, const Mesh& mesh) {
        if(mesh.joints.empty() || node.skin == Nothing || !_json.has("skins", "skin" + std::to_string(node.skin)))
            return false;
        const std::size_t count = _model.skins[std::size_t(node.skin)].joints.size();
        for(const auto& joints: mesh.joints)
            for(const std::uint16_t joint: joints) {
                if(joint < count) continue;
                _messages.warn("mesh " + quoted(mesh.name) + " is not skinned: it names joint " +
                    std::to_string(joint) + " of " + std::to_string(count));
                return false;
            }
        return true;
    }

    JsonValue lightComponent(const Light& light) {
        const auto degrees = [&](float radians) { return _json.number(radians * 180.0f / Pi); };
        JsonValue values = _json.object();
        _json.set(values, "type",
            light.type == LightType::Sun        ? "sun"
                : light.type == LightType::Spot ? "spot"
                                                : "point");
        _json.set(values, "color", _json.numbers(light.color));
        _json.set(values, "intensity", _json.number(light.intensity));
        _json.set(values, "outerAngle", degrees(light.type == LightType::Spot ? light.outerAngle : 0.0f));
        _json.set(values, "innerAngle", degrees(light.type == LightType::Spot ? light.innerAngle : 0.0f));
        _json.set(values, "shadows", JsonValue{_shadows.has(light)});
        _json.set(values, "shadowRange", _json.number(_shadows.range(light)));
        for(const char* const key: {"shadowBias", "shadowNormalBias", "shadowTexelSize"})
            _json.set(values, key, _json.number(0.0f));
        constexpr int SunCascades = 3;
        if(light.type == LightType::Sun) _json.set(values, "cascadeCount", JsonValue{SunCascades});
        return component("light", std::move(values));
    }

    JsonValue viewComponent(const Camera& camera) {
        // Beyond what a float holds is infinitely far.
        constexpr double Infinitely = 1.0e39;
        JsonValue values = _json.object();
        _json.set(values, "fov", _json.number(camera.horizontalAngle * 180.0f / Pi));
        _json.set(values, "near", _json.number(camera.near));
        _json.set(values, "far", camera.far ? _json.number(*camera.far) : JsonValue{Infinitely});
        return component("view", std::move(values));
    }

    // The first one plays by itself.
    JsonValue animationComponent(const std::string& id) {
        JsonValue values = _json.object();
        _json.set(values, "animation", id);
        _json.set(values, "autoplay", JsonValue{id == _animationIds.front()});
        _json.set(values, "preview", JsonValue{false});
        _json.set(values, "playCount", JsonValue{0});
        _json.set(values, "speed", _json.number(1.0f));
        _json.set(values, "retarget", JsonValue{false});
        return component("animation", std::move(values));
    }

    const Model& _model;
    const std::string& _name;
    OutputFolder& _output;
    Messages& _messages;
    JsonBuilder _json;
    MaterialWriter _materials;
    const Shadows _shadows;
    std::size_t _nodeCount = 0;
    std::vector<std::string> _materialIds, _animationIds;
    // By mesh of the model.
    std::vector<MeshIds> _meshes;
};

} // namespace

void writeModel(const Model& model, const std::string& name, OutputFolder& output, Messages& messages) {
    Writer{model, name, output, messages}.write();
}

void writeImage(const Model& model, const std::string& name, OutputFolder& output) {
    JsonBuilder json;
    begin(json, name);
    const auto ids = MaterialWriter{json, output}.addImage(model, 0);
    if(model.images[0].extension == "hdr") json.setMember("environment", json.text(ids.image));
    finish(json, output);
}

} // namespace VantrelImport
