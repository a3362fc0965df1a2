#include "Import/Converter/LibraryReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <set>
#include <string_view>

#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include "Import/Converter/AnimationRepair.h"
#include "Import/Converter/LibraryFiles.h"
#include "Import/Converter/LibraryFormats.h"
#include "Import/Converter/LibraryMeshes.h"
#include "Import/Converter/PlyCheck.h"
#include "Import/Converter/Text.h"
#include "Import/Converter/Transformation.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

// Edges that are sharper than this, in degrees, stay edges where normals have to be made up.
constexpr float SmoothAngle = 45.0f;
constexpr float Pi = 3.14159265f;

Matrix4 matrixOf(const aiMatrix4x4& from) {
    Matrix4 matrix;
    for(unsigned column = 0; column != 4; ++column)
        for(unsigned row = 0; row != 4; ++row) matrix[column][row] = from[row][column];
    return matrix;
}

// What the library says went wrong, "Error, T0: TEXT", as warnings, while this lives.
class LibraryErrors: public Assimp::LogStream {
public:
    explicit LibraryErrors(Messages& messages): _messages{messages} {
        Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0)->attachStream(this, Assimp::Logger::Err);
    }
    ~LibraryErrors() override {
        // Streams that are attached are deleted with the logger.
        Assimp::DefaultLogger::get()->detachStream(this, Assimp::Logger::Err);
        Assimp::DefaultLogger::kill();
    }
    LibraryErrors(const LibraryErrors&) = delete;
    LibraryErrors& operator=(const LibraryErrors&) = delete;

    void write(const char* message) override {
        std::string_view text = message;
        const std::size_t begin = text.find(": ");
        text.remove_prefix(begin == text.npos ? 0 : begin + 2);
        while(!text.empty() && text.back() == '\n') text.remove_suffix(1);
        _messages.warn(text);
    }

private:
    Messages& _messages;
};

class LibraryProgress: public Assimp::ProgressHandler {
public:
    explicit LibraryProgress(Messages& messages): _messages{messages} {}

    // Negative where the library does not know.
    bool Update(float fraction) override {
        if(fraction >= 0.0f) _messages.progress(0.1 + 0.5 * double(fraction), "reading");
        return true;
    }

private:
    Messages& _messages;
};

// A direction of the file, as "UpAxis" and "UpAxisSign" name one.
Vector3 axis(const aiMetadata& settings, const std::string& name, int otherwise) {
    int number = otherwise, sign = 1;
    settings.Get(name, number);
    settings.Get(name + "Sign", sign);
    Vector3 direction{0.0f};
    direction[std::size_t(number >= 0 && number < 3 ? number : otherwise)] = sign < 0 ? -1.0f : 1.0f;
    return direction;
}

// From the file's axes and units to ours. Readers that know of them turn their scene themselves; that for FBX only says
// what they are, the unit in centimetres.
Matrix4 toMetresUpright(const aiScene& scene, const std::string& extension) {
    if(extension != "fbx" || !scene.mMetaData) return {};
    const Vector3 right = axis(*scene.mMetaData, "CoordAxis", 0), up = axis(*scene.mMetaData, "UpAxis", 1),
                  front = axis(*scene.mMetaData, "FrontAxis", 2);
    double unit = 1.0;
    float shortUnit = 1.0f;
    if(!scene.mMetaData->Get("UnitScaleFactor", unit) && scene.mMetaData->Get("UnitScaleFactor", shortUnit))
        unit = shortUnit;
    const Matrix3x3 turned = Matrix3x3{right, up, front}.transposed();
    if(std::abs(turned.determinant()) < 0.5f || !(unit > 0.0) || !std::isfinite(unit)) return {};
    return Matrix4::from(turned, {}) * Matrix4::scaling(Vector3{float(unit * 0.01)});
}

class SceneReader {
public:
    explicit SceneReader(const aiScene& scene, const std::string& extension, const AssetFolder& folder, Model& model,
        Messages& messages):
        _scene{scene},
        _extension{extension}, _model{model}, _messages{messages},
        _materials{scene, folder, model, messages}, _meshes{scene, _materials, model, messages} {}

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

    // Parents first, children in their order. A root that only holds the others goes: the file is an object already.
    void addNodes() {
        const Matrix4 place = toMetresUpright(_scene, _extension) * matrixOf(_scene.mRootNode->mTransformation);
        std::vector<Waiting> waiting;
        if(_scene.mRootNode->mNumMeshes == 0 && place == Matrix4{})
            addChildren(*_scene.mRootNode, Nothing, waiting);
        else
            waiting.push_back({_scene.mRootNode, Nothing});
        while(!waiting.empty()) {
            const Waiting next = waiting.back();
            waiting.pop_back();
            const bool isRoot = next.node == _scene.mRootNode;
            const int added = addNode(next, isRoot ? place : matrixOf(next.node->mTransformation));
            addChildren(*next.node, added, waiting);
        }
    }

    static void addChildren(const aiNode& node, int parent, std::vector<Waiting>& waiting) {
        for(unsigned i = node.mNumChildren; i-- != 0;) waiting.push_back({node.mChildren[i], parent});
    }

    int addNode(const Waiting& next, const Matrix4& matrix) {
        const int place = int(_model.nodes.size());
        if(!_places.emplace(next.node->mName.C_Str(), place).second) _ambiguous.insert(next.node->mName.C_Str());
        Node node;
        node.name = nameOr(next.node->mName.C_Str(), "Object " + std::to_string(place + 1));
        node.parent = next.parent;
        const Fit fit = setPlace(node, matrix);
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

    int placeOf(const aiString& name) {
        if(_ambiguous.erase(name.C_Str()))
            _messages.warn("there are several objects " + quoted(name.C_Str()) + "; the first one is taken");
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

    Skin skinOf(const aiMesh& mesh, const std::string& name) {
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

    // The object at a place and with a direction in the space of another one: that one itself where they are its own.
    Node& objectAt(int place, const std::string& name, const aiVector3D& position, const aiVector3D& direction) {
        Node node;
        turnTowards(node, direction);
        node.translation = finite({position.x, position.y, position.z});
        Node& parent = _model.nodes[std::size_t(place)];
        const bool isThere = node.translation == Vector3{0.0f} && node.rotation == Quaternion{};
        if(isThere && !parent.light && !parent.camera) return parent;
        node.name = name;
        node.parent = place;
        _model.nodes.push_back(std::move(node));
        return _model.nodes.back();
    }

    void addLights() {
        for(unsigned i = 0; i != _scene.mNumLights; ++i) {
            const aiLight& source = *_scene.mLights[i];
            const int place = placeOf(source.mName);
            const std::string name = nameOr(source.mName.C_Str(), "Light " + std::to_string(i + 1));
            if(source.mType == aiLightSource_AMBIENT || source.mType == aiLightSource_AREA || place == Nothing) {
                _messages.warn("light " + quoted(name) + " is left out: its kind is not supported");
                continue;
            }
            const bool isPoint = source.mType == aiLightSource_POINT;
            objectAt(place, name, source.mPosition, isPoint ? aiVector3D{} : source.mDirection).light = lightOf(source);
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

    // The colour holds the intensity. Collada says where the cone ends; the other angle is made up by its reader.
    Light lightOf(const aiLight& source) const {
        Light light;
        light.type = source.mType == aiLightSource_DIRECTIONAL ? LightType::Sun
            : source.mType == aiLightSource_SPOT               ? LightType::Spot
                                                               : LightType::Point;
        const Vector3 color = finite({source.mColorDiffuse.r, source.mColorDiffuse.g, source.mColorDiffuse.b});
        const float strongest = std::max({color.x(), color.y(), color.z()});
        light.intensity = strongest > 1.0f ? strongest : 1.0f;
        light.color = color / light.intensity;
        const float outer = _extension == "dae" ? source.mAngleInnerCone : source.mAngleOuterCone;
        if(std::isfinite(outer)) light.outerAngle = outer * 0.5f;
        if(std::isfinite(source.mAngleInnerCone)) light.innerAngle = source.mAngleInnerCone * 0.5f;
        return light;
    }

    void addCameras() {
        for(unsigned i = 0; i != _scene.mNumCameras; ++i) {
            const aiCamera& source = *_scene.mCameras[i];
            const int place = placeOf(source.mName);
            const bool hasAngle = source.mHorizontalFOV > 0.0f && source.mHorizontalFOV < Pi;
            if(place == Nothing || source.mOrthographicWidth > 0.0f || !hasAngle) {
                _messages.warn("camera " + quoted(source.mName.C_Str()) + " is left out: its kind is not supported");
                continue;
            }
            Camera camera;
            camera.horizontalAngle = source.mHorizontalFOV;
            camera.near = source.mClipPlaneNear;
            camera.far = source.mClipPlaneFar;
            const std::string name = nameOr(source.mName.C_Str(), "Camera " + std::to_string(i + 1));
            objectAt(place, name, source.mPosition, source.mLookAt).camera = camera;
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
    const std::string _extension;
    Model& _model;
    Messages& _messages;
    LibraryMaterials _materials;
    LibraryMeshes _meshes;
    // Nodes of the model, by name: of two with one name the first. Bones, lights, cameras and channels name theirs.
    std::map<std::string, int> _places;
    // Names of several nodes.
    std::set<std::string> _ambiguous;
    std::vector<Source> _sources;
};

} // namespace

void readWithLibrary(
    std::vector<char> bytes, const std::string& fileName, const AssetFolder& folder, Model& model, Messages& messages) {
    if(extensionOf(fileName) == "ply")
        if(const std::string problem = whyNotComplete(bytes); !problem.empty()) throw Unusable{problem};
    const LibraryErrors errors{messages};
    Assimp::Importer importer;
    keepOneReader(importer, extensionOf(fileName));
    importer.SetIOHandler(new LibraryFiles{fileName, std::move(bytes), folder, messages});
    importer.SetProgressHandler(new LibraryProgress{messages});
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, SmoothAngle);
    const aiScene* const scene = importer.ReadFile(fileName,
        aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_GenSmoothNormals | aiProcess_JoinIdenticalVertices);
    if(!scene) throw Unusable{importer.GetErrorString()};
    messages.progress(0.6, "reading");
    SceneReader{*scene, extensionOf(fileName), folder, model, messages}.read();
}

} // namespace VantrelImport
