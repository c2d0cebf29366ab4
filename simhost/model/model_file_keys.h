// The words and keys of model files, for reading and for writing, so that both always agree.
#pragma once

#include "simhost/model/model.h"

namespace simhost {

// The numbers of an appearance; the two colours follow them.
struct AppearanceKey {
    const char* key;
    double ProdbSurfaceProps::*value;
};
inline constexpr AppearanceKey kAppearanceKeys[] = {
    {"ambient", &ProdbSurfaceProps::ambient},
    {"diffuse", &ProdbSurfaceProps::diffuse},
    {"highlight", &ProdbSurfaceProps::highlight},
    {"shininess", &ProdbSurfaceProps::shininess},
    {"reserved", &ProdbSurfaceProps::reserved},
    {"transparency", &ProdbSurfaceProps::transparency},
    {"reflection", &ProdbSurfaceProps::reflection},
};

// The plain sizes of each shape. `mayBeZero`: the shape still makes sense without it.
struct SizeKey {
    Shape shape;
    const char* key;
    double Solid::*value;
    bool mayBeZero;
};
inline constexpr SizeKey kSizeKeys[] = {
    {Shape::Cylinder, "diameter", &Solid::diameter, false},
    {Shape::Cylinder, "length", &Solid::length, false},
    {Shape::Tube, "outer", &Solid::outer, false},
    {Shape::Tube, "inner", &Solid::inner, false},
    {Shape::Tube, "length", &Solid::length, false},
    {Shape::Cone, "diameter", &Solid::diameter, true},
    {Shape::Cone, "top", &Solid::top, true},
    {Shape::Cone, "length", &Solid::length, false},
    {Shape::Gear, "module", &Solid::module, false},
    {Shape::Gear, "width", &Solid::width, false},
    {Shape::Gear, "bore", &Solid::bore, true},
    {Shape::Prism, "height", &Solid::height, false},
};

}  // namespace simhost
