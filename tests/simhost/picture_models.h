// Small models for the tests of the picture, made in a line or two each.
#pragma once

#include <string>

#include "simhost/core/text.h"
#include "simhost/model/session.h"

namespace picture {

using simhost::Feature;
using simhost::Model;
using simhost::Session;
using simhost::Shape;
using simhost::Solid;
using simhost::Vec3;

// A box, and a gear about the z axis, with the id 10 (mm, degrees).
inline Solid Block(Vec3 size, Vec3 at = {}, Vec3 turn = {}) {
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Box;
    solid.size = size;
    solid.at = at;
    solid.turn = turn;
    return solid;
}

inline Solid Gear(double module, int teeth, double width, double bore) {
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Gear;
    solid.module = module;
    solid.teeth = teeth;
    solid.width = width;
    solid.bore = bore;
    return solid;
}

// A new part of one solid; the session owns it.
inline Model& NewPart(Session* session, const char* name, const Solid& solid) {
    Model& part = session->Create(simhost::Wide(name), PRO_MDL_PART);
    part.partData.solids.push_back(solid);
    return part;
}

// The part becomes the assembly's next component. The reference holds until the one after it.
inline Feature& Add(Model* assembly, Model* part, Vec3 at = {}, Vec3 turn = {}) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.model = part;
    feature.file = part->FileName();
    feature.placement = simhost::PlacementFrom(at, turn);
    return assembly->AddFeature(feature);
}

}  // namespace picture
