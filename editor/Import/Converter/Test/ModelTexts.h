#pragma once

#include <cstdint>
#include <string>

// Small models, one a format.
namespace VantrelImport::Test {

// A square of four corners.
constexpr const char* ObjText = R"FILE(v 0 0 0
v 1 0 0
v 1 1 0
v 0 1 0
f 1 2 3 4
)FILE";

// A square of four colours.
constexpr const char* PlyText = R"FILE(ply
format ascii 1.0
element vertex 4
property float x
property float y
property float z
property uchar red
property uchar green
property uchar blue
element face 1
property list uchar int vertex_indices
end_header
0 0 0 255 0 0
1 0 0 0 255 0
1 1 0 0 0 255
0 1 0 255 255 255
4 0 1 2 3
)FILE";

// A triangle that faces +Z.
constexpr const char* StlText = R"FILE(solid one
facet normal 0 0 1
outer loop
vertex 0 0 0
vertex 1 0 0
vertex 0 1 0
endloop
endfacet
endsolid one
)FILE";

inline std::string binaryStl() {
    std::string bytes(80, ' ');
    const auto append = [&](const auto& value) { bytes.append(reinterpret_cast<const char*>(&value), sizeof(value)); };
    append(std::uint32_t{1});
    for(const float number: {0.f, 0.f, 1.f, 0.f, 0.f, 0.f, 1.f, 0.f, 0.f, 0.f, 1.f, 0.f}) append(number);
    append(std::uint16_t{0});
    return bytes;
}

// With Z upwards, in centimetres: a triangle, a sun, a spot and a camera.
constexpr const char* DaeText = R"FILE(<?xml version="1.0" encoding="utf-8"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
  <asset><unit name="centimeter" meter="0.01"/><up_axis>Z_UP</up_axis></asset>
  <library_images><image id="img" name="img"><init_from>pic%20one.png</init_from></image></library_images>
  <library_effects><effect id="fx"><profile_COMMON>
    <newparam sid="surf"><surface type="2D"><init_from>img</init_from></surface></newparam>
    <newparam sid="samp"><sampler2D><source>surf</source></sampler2D></newparam>
    <technique sid="common"><phong>
    <diffuse><texture texture="samp" texcoord="UVMap"/></diffuse><specular><color>0.5 0.5 0.5 1</color></specular><shininess><float>30</float></shininess>
    </phong></technique></profile_COMMON></effect></library_effects>
  <library_materials><material id="mat" name="Red"><instance_effect url="#fx"/></material></library_materials>
  <library_lights><light id="lamp" name="lamp"><technique_common><directional><color>2 1 1</color></directional></technique_common></light>
  <light id="spot" name="spot"><technique_common><spot><color>1 1 1</color><falloff_angle>60</falloff_angle></spot></technique_common></light></library_lights>
  <library_cameras><camera id="cam" name="cam"><optics><technique_common><perspective><yfov>40</yfov><aspect_ratio>2</aspect_ratio><znear>0.5</znear><zfar>50</zfar></perspective></technique_common></optics></camera></library_cameras>
  <library_geometries><geometry id="geo" name="geo"><mesh>
    <source id="pos"><float_array id="posa" count="9">0 0 0  100 0 0  0 0 100</float_array><technique_common><accessor source="#posa" count="3" stride="3"><param name="X" type="float"/><param name="Y" type="float"/><param name="Z" type="float"/></accessor></technique_common></source>
    <source id="uv"><float_array id="uva" count="6">0 0  1 0  0 1</float_array><technique_common><accessor source="#uva" count="3" stride="2"><param name="S" type="float"/><param name="T" type="float"/></accessor></technique_common></source>
    <vertices id="verts"><input semantic="POSITION" source="#pos"/></vertices>
    <triangles count="1" material="m"><input semantic="VERTEX" source="#verts" offset="0"/><input semantic="TEXCOORD" source="#uv" offset="1" set="0"/><p>0 0 1 1 2 2</p></triangles>
  </mesh></geometry></library_geometries>
  <library_visual_scenes><visual_scene id="s" name="s">
   <node id="n" name="Thing"><translate>0 0 100</translate><instance_geometry url="#geo"><bind_material><technique_common><instance_material symbol="m" target="#mat"><bind_vertex_input semantic="UVMap" input_semantic="TEXCOORD" input_set="0"/></instance_material></technique_common></bind_material></instance_geometry></node>
   <node id="l" name="Sun"><instance_light url="#lamp"/></node><node id="l2" name="Spot"><instance_light url="#spot"/></node>
   <node id="c" name="Cam"><instance_camera url="#cam"/></node>
  </visual_scene></library_visual_scenes>
  <scene><instance_visual_scene url="#s"/></scene>
</COLLADA>
)FILE";

// A triangle that two joints bend; the second one moves for two seconds.
constexpr const char* SkinnedDaeText = R"FILE(<?xml version="1.0" encoding="utf-8"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
  <asset><up_axis>Y_UP</up_axis></asset>
  <library_geometries><geometry id="geo"><mesh>
    <source id="pos"><float_array id="posa" count="9">0 0 0  1 0 0  0 1 0</float_array><technique_common>
      <accessor source="#posa" count="3" stride="3"><param name="X" type="float"/><param name="Y" type="float"/>
      <param name="Z" type="float"/></accessor></technique_common></source>
    <vertices id="verts"><input semantic="POSITION" source="#pos"/></vertices>
    <triangles count="1"><input semantic="VERTEX" source="#verts" offset="0"/><p>0 1 2</p></triangles>
  </mesh></geometry></library_geometries>
  <library_controllers><controller id="ctl"><skin source="#geo">
    <bind_shape_matrix>1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1</bind_shape_matrix>
    <source id="jn"><Name_array id="jna" count="2">base tip</Name_array><technique_common>
      <accessor source="#jna" count="2" stride="1"><param name="JOINT" type="name"/></accessor></technique_common></source>
    <source id="bp"><float_array id="bpa" count="32">1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1
      1 0 0 0 0 1 0 -1 0 0 1 0 0 0 0 1</float_array><technique_common><accessor source="#bpa" count="2" stride="16">
      <param name="TRANSFORM" type="float4x4"/></accessor></technique_common></source>
    <source id="we"><float_array id="wea" count="3">1 0.25 0.75</float_array><technique_common>
      <accessor source="#wea" count="3" stride="1"><param name="WEIGHT" type="float"/></accessor></technique_common></source>
    <joints><input semantic="JOINT" source="#jn"/><input semantic="INV_BIND_MATRIX" source="#bp"/></joints>
    <vertex_weights count="3"><input semantic="JOINT" source="#jn" offset="0"/><input semantic="WEIGHT" source="#we" offset="1"/>
      <vcount>2 1 1</vcount><v>0 1 1 2 0 0 1 0</v></vertex_weights>
  </skin></controller></library_controllers>
  <library_animations><animation id="an">
    <source id="ti"><float_array id="tia" count="2">0 2</float_array><technique_common>
      <accessor source="#tia" count="2" stride="1"><param name="TIME" type="float"/></accessor></technique_common></source>
    <source id="va"><float_array id="vaa" count="6">0 1 0  0 5 0</float_array><technique_common>
      <accessor source="#vaa" count="2" stride="3"><param name="X" type="float"/><param name="Y" type="float"/>
      <param name="Z" type="float"/></accessor></technique_common></source>
    <source id="ip"><Name_array id="ipa" count="2">LINEAR LINEAR</Name_array><technique_common>
      <accessor source="#ipa" count="2" stride="1"><param name="INTERPOLATION" type="name"/></accessor></technique_common></source>
    <sampler id="sa"><input semantic="INPUT" source="#ti"/><input semantic="OUTPUT" source="#va"/>
      <input semantic="INTERPOLATION" source="#ip"/></sampler>
    <channel source="#sa" target="tipnode/move"/>
  </animation></library_animations>
  <library_visual_scenes><visual_scene id="s" name="s">
    <node id="basenode" sid="base" name="Base" type="JOINT"><node id="tipnode" sid="tip" name="Tip" type="JOINT">
      <translate sid="move">0 1 0</translate></node></node>
    <node id="b" name="Body"><instance_controller url="#ctl"><skeleton>#basenode</skeleton></instance_controller></node>
  </visual_scene></library_visual_scenes>
  <scene><instance_visual_scene url="#s"/></scene>
</COLLADA>
)FILE";

// With Z upwards, in centimetres: a triangle.
constexpr const char* FbxText = R"FILE(; FBX 7.4.0 project file
FBXHeaderExtension:  {
	FBXHeaderVersion: 1003
	FBXVersion: 7400
}
GlobalSettings:  {
	Version: 1000
	Properties70:  {
		P: "UpAxis", "int", "Integer", "",2
		P: "UpAxisSign", "int", "Integer", "",1
		P: "FrontAxis", "int", "Integer", "",1
		P: "FrontAxisSign", "int", "Integer", "",-1
		P: "CoordAxis", "int", "Integer", "",0
		P: "CoordAxisSign", "int", "Integer", "",1
		P: "UnitScaleFactor", "double", "Number", "",1
	}
}
Objects:  {
	Geometry: 1001, "Geometry::Tri", "Mesh" {
		Vertices: *9 {
			a: 0,0,0,100,0,0,0,0,100
		}
		PolygonVertexIndex: *3 {
			a: 0,1,-3
		}
		GeometryVersion: 124
		LayerElementUV: 0 {
			Version: 101
			Name: "UVMap"
			MappingInformationType: "ByPolygonVertex"
			ReferenceInformationType: "IndexToDirect"
			UV: *6 {
				a: 0,0,1,0,0,1
			}
			UVIndex: *3 {
				a: 0,1,2
			}
		}
		LayerElementMaterial: 0 {
			Version: 101
			Name: ""
			MappingInformationType: "AllSame"
			ReferenceInformationType: "IndexToDirect"
			Materials: *1 {
				a: 0
			}
		}
		Layer: 0 {
			LayerElement:  {
				Type: "LayerElementMaterial"
				TypedIndex: 0
			}
			Version: 100
			LayerElement:  {
				Type: "LayerElementUV"
				TypedIndex: 0
			}
		}
	}
	Model: 2001, "Model::Thing", "Mesh" {
		Version: 232
		Properties70:  {
			P: "Lcl Translation", "Lcl Translation", "", "A",0,0,100
		}
		Shading: T
		Culling: "CullingOff"
	}
	Material: 3001, "Material::Red", "" {
		Version: 102
		ShadingModel: "phong"
		MultiLayer: 0
		Properties70:  {
			P: "DiffuseColor", "Color", "", "A",0.8,0.1,0.1
			P: "SpecularColor", "Color", "", "A",0.5,0.5,0.5
			P: "ShininessExponent", "Number", "", "A",30
			P: "Opacity", "double", "Number", "",0.5
		}
	}
}
Connections:  {
	C: "OO",2001,0
	C: "OO",1001,2001
	C: "OO",3001,2001
}
)FILE";

} // namespace VantrelImport::Test
