#include "Import/Converter/GltfReader.h"

#include <algorithm>
#include <cmath>

#include "Import/Converter/GltfAnimations.h"
#include "Import/Converter/GltfMeshes.h"
#include "Import/Converter/Text.h"
#include "Import/Converter/Transformation.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

constexpr float Pi = 3.14159265f;

const Json* extension(const Json* json, const char* name) { return member(member(json, "extensions"), name); }

class SceneReader {
public:
    explicit SceneReader(GltfFile& file, Model& model, Messages& messages):
        _file{file}, _model{model}, _messages{messages}, _materials{file, model, messages}, _meshes{file, _materials,
                                                                                                model, messages},
        _places(sizeOf(file.list("nodes")), Nothing) {}

    void read() {
        const std::vector<int> roots = findRoots();
        if(roots.empty()) throw Unusable{"it has no scene with objects"};
        addNodes(roots);
        readSkins();
        bindSkins();
        readGltfAnimations(_file, _places, _model, _messages);
    }

private:
    struct Waiting {
        int node, parent;
    };

    // Of the scene that is shown first; of a file without scenes, whatever is nobody's child.
    std::vector<int> findRoots() const {
        const Json* const scenes = _file.list("scenes");
        const int chosen = std::max(asIndex(_file.list("scene")), 0);
        if(sizeOf(scenes)) {
            if(sizeOf(scenes) > 1)
                _messages.warn("of its " + std::to_string(sizeOf(scenes)) + " scenes only one is read");
            return indices(member(elementOf(scenes, std::uint64_t(chosen)), "nodes"));
        }
        std::vector<bool> isChild(_places.size());
        for(std::size_t i = 0; i != _places.size(); ++i)
            for(const int child: indices(member(_file.element("nodes", int(i)), "children")))
                if(std::size_t(child) < isChild.size()) isChild[std::size_t(child)] = true;
        std::vector<int> roots;
        for(std::size_t i = 0; i != isChild.size(); ++i)
            if(!isChild[i]) roots.push_back(int(i));
        return roots;
    }

    static std::vector<int> indices(const Json* list) {
        std::vector<int> numbers;
        for(std::size_t i = 0; i != sizeOf(list); ++i)
            if(const int index = asIndex(elementOf(list, i)); index != Nothing) numbers.push_back(index);
        return numbers;
    }

    // Parents first, children in their order.
    void addNodes(const std::vector<int>& roots) {
        std::vector<Waiting> waiting;
        for(auto root = roots.rbegin(); root != roots.rend(); ++root) waiting.push_back({*root, Nothing});
        while(!waiting.empty()) {
            const Waiting next = waiting.back();
            waiting.pop_back();
            if(!addNode(next)) continue;
            const int place = _places[std::size_t(next.node)];
            const std::vector<int> children = indices(member(_file.element("nodes", next.node), "children"));
            for(auto child = children.rbegin(); child != children.rend(); ++child) waiting.push_back({*child, place});
            _messages.progress(0.1 + 0.6 * double(place) / double(_places.size()), "reading");
        }
    }

    bool addNode(const Waiting& next) {
        const Json* const json = _file.element("nodes", next.node);
        const std::string number = "Object " + std::to_string(next.node + 1);
        if(!json) {
            _messages.warn("object " + std::to_string(next.node + 1) + " is not there");
            return false;
        }
        const std::string name = nameOr(asText(member(json, "name")), nameOr(meshName(*json), number));
        int& place = _places[std::size_t(next.node)];
        if(place != Nothing) {
            _messages.warn("object " + quoted(name) + " is its own ancestor or has two parents; it stays where it is");
            return false;
        }
        place = int(_model.nodes.size());
        _model.nodes.push_back({});
        Node& node = _model.nodes.back();
        node.name = name;
        node.parent = next.parent;
        readPlace(*json, node);
        if(const int mesh = asIndex(member(json, "mesh")); mesh != Nothing) node.meshes = _meshes.use(mesh);
        node.light = readLight(*json);
        node.camera = readCamera(*json, name);
        if(extension(json, "EXT_mesh_gpu_instancing"))
            _messages.warn("object " + quoted(name) + ": its instances are left out");
        return true;
    }

    std::string_view meshName(const Json& node) const {
        return asText(member(_file.element("meshes", asIndex(member(&node, "mesh"))), "name"));
    }

    void readPlace(const Json& json, Node& node) {
        bool isUsable = true;
        if(const Json* const matrix = member(&json, "matrix")) {
            const Fit fit = setPlace(node, readMatrix(*matrix));
            isUsable = fit != Fit::Unusable;
            if(fit == Fit::Sheared) _messages.warn("object " + quoted(node.name) + ": its shear is left out");
        } else {
            const Vector4 rotation{asVector<4>(member(&json, "rotation"), Vector4{0.0f, 0.0f, 0.0f, 1.0f})};
            isUsable = setPlace(node, Vector3{asVector<3>(member(&json, "translation"), Vector3{0.0f})},
                Quaternion{rotation.xyz(), rotation.w()}, Vector3{asVector<3>(member(&json, "scale"), Vector3{1.0f})});
        }
        if(!isUsable) _messages.warn("object " + quoted(node.name) + ": its place is not a usable one");
    }

    static Matrix4 readMatrix(const Json& json) {
        Matrix4 matrix;
        for(std::size_t i = 0; i != 16; ++i) matrix[i / 4][i % 4] = asFloat(elementOf(&json, i), matrix[i / 4][i % 4]);
        return matrix;
    }

    std::optional<Light> readLight(const Json& node) const {
        const int index = asIndex(member(extension(&node, "KHR_lights_punctual"), "light"));
        const Json* const lights = member(extension(&_file.root(), "KHR_lights_punctual"), "lights");
        const Json* const json = index == Nothing ? nullptr : elementOf(lights, std::uint64_t(index));
        if(!json) return {};
        Light light;
        const std::string_view type = asText(member(json, "type"));
        if(type == "directional") light.type = LightType::Sun;
        if(type == "spot") light.type = LightType::Spot;
        light.color = Vector3{asVector<3>(member(json, "color"), Vector3{1.0f})};
        light.intensity = asFloat(member(json, "intensity"), 1.0f);
        if(const float range = asFloat(member(json, "range"), 0.0f); range > 0.0f) light.range = range;
        const Json* const spot = member(json, "spot");
        light.innerAngle = asFloat(member(spot, "innerConeAngle"), 0.0f);
        light.outerAngle = asFloat(member(spot, "outerConeAngle"), light.outerAngle);
        return light;
    }

    std::optional<Camera> readCamera(const Json& node, const std::string& name) const {
        const Json* const json = _file.element("cameras", asIndex(member(&node, "camera")));
        if(!json) return {};
        const Json* const perspective = member(json, "perspective");
        if(!perspective) {
            _messages.warn("object " + quoted(name) + ": its camera without perspective is left out");
            return {};
        }
        Camera camera;
        camera.horizontalAngle = horizontalAngle(*perspective);
        camera.near = asFloat(member(perspective, "znear"), camera.near);
        if(const Json* const far = member(perspective, "zfar")) camera.far = asFloat(far, 1000.0f);
        return camera;
    }

    // The file has the angle from the lower to the upper edge. Where it does not say how wide the picture is, most screens
    // decide.
    static float horizontalAngle(const Json& perspective) {
        constexpr float UsualAspect = 16.0f / 9.0f, UsualAngle = 1.0f;
        const float given = asFloat(member(&perspective, "yfov"), UsualAngle);
        const float aspect = asFloat(member(&perspective, "aspectRatio"), UsualAspect);
        const float half = std::tan((given > 0.0f && given < Pi ? given : UsualAngle) * 0.5f);
        return 2.0f * std::atan(half * (aspect > 0.0f ? aspect : UsualAspect));
    }

    void readSkins() {
        const Json* const skins = _file.list("skins");
        for(std::size_t i = 0; i != sizeOf(skins); ++i) {
            Skin skin;
            skin.name = nameOr(asText(member(elementOf(skins, i), "name")), "Skin " + std::to_string(i + 1));
            try {
                readSkin(*elementOf(skins, i), skin);
                _skins.push_back(int(_model.skins.size()));
                _model.skins.push_back(std::move(skin));
            } catch(const Unusable& problem) {
                _messages.warn("skin " + quoted(skin.name) + " is left out: " + problem.what());
                _skins.push_back(Nothing);
            }
        }
    }

    void readSkin(const Json& json, Skin& skin) {
        for(const int joint: indices(member(&json, "joints"))) {
            const int place = std::size_t(joint) < _places.size() ? _places[std::size_t(joint)] : Nothing;
            if(place == Nothing) throw Unusable{"one of its joints is no object of the scene"};
            skin.joints.push_back(place);
        }
        if(skin.joints.empty()) throw Unusable{"it has no joints"};
        skin.inverseBindMatrices.resize(skin.joints.size());
        const Json* const matrices = member(&json, "inverseBindMatrices");
        if(!matrices) return;
        const std::vector<float> numbers = _file.floats(asIndex(matrices), 16);
        if(numbers.size() < skin.joints.size() * 16) throw Unusable{"it has fewer matrices than joints"};
        if(!std::all_of(numbers.begin(), numbers.end(), [](float number) { return std::isfinite(number); }))
            throw Unusable{"a matrix is not finite"};
        for(std::size_t i = 0; i != skin.joints.size() * 16; ++i)
            skin.inverseBindMatrices[i / 16][i / 4 % 4][i % 4] = numbers[i];
    }

    void bindSkins() {
        for(std::size_t i = 0; i != _places.size(); ++i) {
            const int skin = asIndex(member(_file.element("nodes", int(i)), "skin"));
            if(_places[i] == Nothing || skin == Nothing || std::size_t(skin) >= _skins.size()) continue;
            _model.nodes[std::size_t(_places[i])].skin = _skins[std::size_t(skin)];
        }
    }

    GltfFile& _file;
    Model& _model;
    Messages& _messages;
    GltfMaterials _materials;
    GltfMeshes _meshes;
    // In the model, of the nodes of the file, and of its skins.
    std::vector<int> _places, _skins;
};

} // namespace

void readGltf(std::vector<char> bytes, const AssetFolder& folder, Model& model, Messages& messages) {
    GltfFile file{std::move(bytes), folder};
    SceneReader{file, model, messages}.read();
}

} // namespace VantrelImport
