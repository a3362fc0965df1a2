#include "Import/Converter/LibraryReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <set>
#include <string_view>

#include <assimp/BaseImporter.h>
#include <assimp/Importer.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include "Import/Converter/AnimationRepair.h"
#include "Import/Converter/LibraryFiles.h"
#include "Import/Converter/LibraryMeshes.h"
#include "Import/Converter/Text.h"
#include "Import/Converter/Transformation.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

constexpr std::string_view Extensions[]{"obj", "fbx", "ply", "stl", "dae"};
// Edges that are sharper than this, in degrees, stay edges where normals have to be made up.
constexpr float SmoothAngle = 45.0f;

// The only reader that is kept is the one for the extension; others would be tried by what is in the file.
void keepOneReader(Assimp::Importer& importer, const std::string& extension) {
    for(std::size_t i = importer.GetImporterCount(); i-- != 0;) {
        Assimp::BaseImporter* const reader = importer.GetImporter(i);
        std::set<std::string> known;
        reader->GetExtensionList(known);
        if(known.count(extension)) continue;
        importer.UnregisterLoader(reader);
        delete reader;
    }
}

Matrix4 matrixOf(const aiMatrix4x4& from) {
    Matrix4 matrix;
    for(unsigned column = 0; column != 4; ++column)
        for(unsigned row = 0; row != 4; ++row) matrix[column][row] = from[row][column];
    return matrix;
}

class SceneReader {
public:
    explicit SceneReader(const aiScene& scene, const AssetFolder& folder, Model& model, Messages& messages):
        _scene{scene}, _model{model}, _messages{messages}, _materials{scene, folder, model, messages}, _meshes{scene,
                                                                                                           _materials,
                                                                                                           model,
                                                                                                           messages} {}

    void read() {
        if(!_scene.mRootNode) throw Unusable{"it has no scene"};
        addNodes();
        addSkins();
        addLights();
        addCameras();
        for(unsigned i = 0; i != _scene.mNumAnimations; ++i) addAnimation(*_scene.mAnimations[i], i);
    }

private:
    struct Waiting {
        const aiNode* node;
        int parent;
    };

    // Parents first, children in their order.
    void addNodes() {
        std::vector<Waiting> waiting{{_scene.mRootNode, Nothing}};
        while(!waiting.empty()) {
            const Waiting next = waiting.back();
            waiting.pop_back();
            const int place = addNode(next);
            for(unsigned i = next.node->mNumChildren; i-- != 0;) waiting.push_back({next.node->mChildren[i], place});
        }
    }

    int addNode(const Waiting& next) {
        const int place = int(_model.nodes.size());
        _places.emplace(next.node->mName.C_Str(), place);
        Node node;
        node.name = nameOr(next.node->mName.C_Str(), "Object " + std::to_string(place + 1));
        node.parent = next.parent;
        const Fit fit = setPlace(node, matrixOf(next.node->mTransformation));
        if(fit == Fit::Sheared) _messages.warn("object " + quoted(node.name) + ": its shear is left out");
        if(fit == Fit::Unusable) _messages.warn("object " + quoted(node.name) + ": its place is not a usable one");
        for(unsigned i = 0; i != next.node->mNumMeshes; ++i)
            if(const int mesh = _meshes.use(next.node->mMeshes[i], node.name); mesh != Nothing) {
                node.meshes.push_back(mesh);
                _sources.push_back({place, _scene.mMeshes[next.node->mMeshes[i]]});
            }
        _model.nodes.push_back(std::move(node));
        return place;
    }

    int placeOf(const aiString& name) const {
        const auto found = _places.find(name.C_Str());
        return found == _places.end() ? Nothing : found->second;
    }

    // A mesh brings its own joints. An object has one skin; meshes with another one stay as they are.
    void addSkins() {
        for(const auto& [place, mesh]: _sources) {
            if(!mesh->HasBones()) continue;
            Node& node = _model.nodes[std::size_t(place)];
            Skin skin = skinOf(*mesh, node.name);
            if(skin.joints.empty()) continue;
            if(node.skin == Nothing) {
                node.skin = int(_model.skins.size());
                _model.skins.push_back(std::move(skin));
            } else if(_model.skins[std::size_t(node.skin)].joints != skin.joints)
                splitOff(place, *mesh, std::move(skin));
        }
    }

    // Moves a mesh to an object of its own below the one that it is in, with its own skin.
    void splitOff(int place, const aiMesh& mesh, Skin skin) {
        const int index = _meshes.use(
            unsigned(std::find(_scene.mMeshes, _scene.mMeshes + _scene.mNumMeshes, &mesh) - _scene.mMeshes), {});
        std::vector<int>& meshes = _model.nodes[std::size_t(place)].meshes;
        meshes.erase(std::remove(meshes.begin(), meshes.end(), index), meshes.end());
        Node node;
        node.name = _model.meshes[std::size_t(index)].name;
        node.parent = place;
        node.meshes = {index};
        node.skin = int(_model.skins.size());
        _model.skins.push_back(std::move(skin));
        _model.nodes.push_back(std::move(node));
    }

    Skin skinOf(const aiMesh& mesh, const std::string& name) const {
        Skin skin;
        skin.name = name + " Skin";
        for(unsigned i = 0; i != mesh.mNumBones; ++i) {
            const aiBone& bone = *mesh.mBones[i];
            const int joint = placeOf(bone.mName);
            const Matrix4 matrix = matrixOf(bone.mOffsetMatrix);
            const bool isUsable =
                std::all_of(matrix.data(), matrix.data() + 16, [](float value) { return std::isfinite(value); });
            if(joint == Nothing || !isUsable) {
                _messages.warn("mesh " + quoted(name) + " is not skinned: joint " + quoted(bone.mName.C_Str()) +
                    (joint == Nothing ? " is not there" : " has no usable matrix"));
                return {};
            }
            skin.joints.push_back(joint);
            skin.inverseBindMatrices.push_back(matrix);
        }
        return skin;
    }

    // Shines along a direction of its node; ours along -Z, so it gets an object that is turned there.
    void addLights() {
        for(unsigned i = 0; i != _scene.mNumLights; ++i) {
            const aiLight& source = *_scene.mLights[i];
            const int place = placeOf(source.mName);
            const std::string name = nameOr(source.mName.C_Str(), "Light " + std::to_string(i + 1));
            if(source.mType == aiLightSource_AMBIENT || source.mType == aiLightSource_AREA || place == Nothing) {
                _messages.warn("light " + quoted(name) + " is left out: its kind is not supported");
                continue;
            }
            Node node;
            node.name = name;
            node.parent = place;
            turnTowards(node, source.mDirection);
            node.translation = finite({source.mPosition.x, source.mPosition.y, source.mPosition.z});
            node.light = lightOf(source);
            _model.nodes.push_back(std::move(node));
        }
    }

    static Vector3 finite(const Vector3& vector) {
        return std::isfinite(vector.x() + vector.y() + vector.z()) ? vector : Vector3{0.0f};
    }

    // Rotates -Z to a direction of any length.
    static void turnTowards(Node& node, const aiVector3D& direction) {
        const Vector3 wanted{direction.x, direction.y, direction.z};
        const float length = wanted.length();
        if(!std::isfinite(length) || length < 1.0e-6f) return;
        const Vector3 to = wanted / length, from{0.0f, 0.0f, -1.0f};
        const float cosine = Math::dot(from, to);
        node.rotation = cosine < -0.9999f ? Quaternion{{0.0f, 1.0f, 0.0f}, 0.0f}
                                          : Quaternion{Math::cross(from, to), 1.0f + cosine}.normalized();
    }

    // The colour holds the intensity.
    static Light lightOf(const aiLight& source) {
        Light light;
        light.type = source.mType == aiLightSource_DIRECTIONAL ? LightType::Sun
            : source.mType == aiLightSource_SPOT               ? LightType::Spot
                                                               : LightType::Point;
        const Vector3 color = finite({source.mColorDiffuse.r, source.mColorDiffuse.g, source.mColorDiffuse.b});
        const float strongest = std::max({color.x(), color.y(), color.z()});
        light.intensity = strongest > 1.0f ? strongest : 1.0f;
        light.color = color / light.intensity;
        if(std::isfinite(source.mAngleOuterCone)) light.outerAngle = source.mAngleOuterCone * 0.5f;
        if(std::isfinite(source.mAngleInnerCone)) light.innerAngle = source.mAngleInnerCone * 0.5f;
        return light;
    }

    void addCameras() {
        for(unsigned i = 0; i != _scene.mNumCameras; ++i) {
            const aiCamera& source = *_scene.mCameras[i];
            const int place = placeOf(source.mName);
            const float horizontal = std::tan(source.mHorizontalFOV * 0.5f);
            if(place == Nothing || source.mOrthographicWidth > 0.0f || !(horizontal > 0.0f)) {
                _messages.warn("camera " + quoted(source.mName.C_Str()) + " is left out: its kind is not supported");
                continue;
            }
            Node node;
            node.name = nameOr(source.mName.C_Str(), "Camera " + std::to_string(i + 1));
            node.parent = place;
            turnTowards(node, source.mLookAt);
            node.translation = finite({source.mPosition.x, source.mPosition.y, source.mPosition.z});
            Camera camera;
            const float aspect = source.mAspect > 0.0f && std::isfinite(source.mAspect) ? source.mAspect : 1.0f;
            camera.verticalAngle = 2.0f * std::atan(horizontal / aspect);
            camera.near = source.mClipPlaneNear;
            camera.far = source.mClipPlaneFar;
            node.camera = camera;
            _model.nodes.push_back(std::move(node));
        }
    }

    void addAnimation(const aiAnimation& source, unsigned index) {
        Animation animation;
        animation.name = nameOr(source.mName.C_Str(), "Animation " + std::to_string(index + 1));
        // 0: not given.
        const double ticks = source.mTicksPerSecond > 0.0 ? source.mTicksPerSecond : 25.0;
        for(unsigned i = 0; i != source.mNumChannels; ++i) {
            const aiNodeAnim& channel = *source.mChannels[i];
            const int node = placeOf(channel.mNodeName);
            if(node == Nothing) {
                _messages.warn("animation " + quoted(animation.name) + ": it moves " +
                    quoted(channel.mNodeName.C_Str()) + ", which is not there");
                continue;
            }
            addChannel(
                animation, node, ChannelPath::Translation, channel.mPositionKeys, channel.mNumPositionKeys, ticks);
            addChannel(animation, node, ChannelPath::Rotation, channel.mRotationKeys, channel.mNumRotationKeys, ticks);
            addChannel(animation, node, ChannelPath::Scaling, channel.mScalingKeys, channel.mNumScalingKeys, ticks);
        }
        if(source.mNumMorphMeshChannels || source.mNumMeshChannels)
            _messages.warn("animation " + quoted(animation.name) + ": changes of meshes are left out");
        if(!animation.channels.empty()) _model.animations.push_back(std::move(animation));
    }

    static std::array<float, 3> valueOf(const aiVectorKey& key) { return {key.mValue.x, key.mValue.y, key.mValue.z}; }
    static std::array<float, 4> valueOf(const aiQuatKey& key) {
        return {key.mValue.x, key.mValue.y, key.mValue.z, key.mValue.w};
    }

    template<class Key>
    void addChannel(Animation& animation, int node, ChannelPath path, const Key* keys, unsigned count, double ticks) {
        if(count == 0) return;
        Channel channel;
        channel.node = node;
        channel.path = path;
        for(unsigned i = 0; i != count; ++i) {
            channel.keys.push_back(float(keys[i].mTime / ticks));
            const auto value = valueOf(keys[i]);
            channel.values.insert(channel.values.end(), value.begin(), value.end());
        }
        if(repair(channel, "animation " + quoted(animation.name), _messages))
            animation.channels.push_back(std::move(channel));
    }

    struct Source {
        int node;
        const aiMesh* mesh;
    };

    const aiScene& _scene;
    Model& _model;
    Messages& _messages;
    LibraryMaterials _materials;
    LibraryMeshes _meshes;
    // Nodes of the model, by name: of two with one name the first. Bones, lights, cameras and channels name theirs.
    std::map<std::string, int> _places;
    std::vector<Source> _sources;
};

} // namespace

bool isLibraryExtension(const std::string& extension) {
    return std::find(std::begin(Extensions), std::end(Extensions), extension) != std::end(Extensions);
}

void readWithLibrary(
    std::vector<char> bytes, const std::string& fileName, const AssetFolder& folder, Model& model, Messages& messages) {
    Assimp::Importer importer;
    keepOneReader(importer, extensionOf(fileName));
    importer.SetIOHandler(new LibraryFiles{fileName, std::move(bytes), folder});
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, SmoothAngle);
    const aiScene* const scene = importer.ReadFile(fileName,
        aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_GenSmoothNormals | aiProcess_JoinIdenticalVertices);
    if(!scene) throw Unusable{importer.GetErrorString()};
    messages.progress(0.6, "reading");
    SceneReader{*scene, folder, model, messages}.read();
}

} // namespace VantrelImport
