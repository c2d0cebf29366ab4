// How the door's records, points, matrices and lists look in the journal. Every operation whose
// arguments they are includes this; handles are described by describe.cpp wherever they appear.
#pragma once

#include <cstddef>
#include <string>

#include "hostapi/host/appearance.h"
#include "hostapi/host/component_path.h"
#include "hostapi/host/dialog_drawingarea.h"
#include "hostapi/host/dimension.h"
#include "hostapi/host/drawing_template.h"
#include "hostapi/host/drawing_view.h"
#include "hostapi/host/element.h"
#include "hostapi/host/family_table.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/material.h"
#include "hostapi/host/model.h"
#include "hostapi/host/parameter.h"
#include "hostapi/host/relation.h"
#include "hostapi/host/selection.h"
#include "hostapi/host/simprep.h"
#include "hostapi/host/types.h"
#include "hostapi/host/units.h"
#include "simhost/core/operation.h"

namespace simhost {

std::string TextOf(const ProModelitem& item);
std::string TextOf(const ProParameter& parameter);
std::string TextOf(const ProParamvalue& value);
std::string TextOf(const ProMdldata& data);
std::string TextOf(const ProModel& model);
std::string TextOf(const ProMaterial& material);
std::string TextOf(const ProRelset& set);
std::string TextOf(const ProFamtableItem& item);
std::string TextOf(const ProAsmcomppath& path);
std::string TextOf(const ProGeomitemdata& data);
std::string TextOf(const ProDimSense& sense);
std::string TextOf(const ProDrawingViewDisplay& display);
std::string TextOf(const ProdbSurfaceProps& props);
std::string TextOf(const ProSelectionEnvOption& option);
std::string TextOf(const ProSimprepAction& action);
std::string TextOf(const ProSimprepitem& item);
std::string TextOf(const ProUIPoint& point);
std::string TextOf(const ProUnititem& unit);
std::string TextOf(const ProUnitsystem& system);
std::string TextOf(const ProValueData& data);
std::string TextOf(const ProErrorlist& errors);

template <class Record>
struct RecordText {
    static std::string Of(const Record& record) { return TextOf(record); }
};
// clang-format off
template <> struct JournalText<ProModelitem> : RecordText<ProModelitem> {};
template <> struct JournalText<ProParameter> : RecordText<ProParameter> {};
template <> struct JournalText<ProParamvalue> : RecordText<ProParamvalue> {};
template <> struct JournalText<ProMdldata> : RecordText<ProMdldata> {};
template <> struct JournalText<ProModel> : RecordText<ProModel> {};
template <> struct JournalText<ProMaterial> : RecordText<ProMaterial> {};
template <> struct JournalText<ProRelset> : RecordText<ProRelset> {};
template <> struct JournalText<ProFamtableItem> : RecordText<ProFamtableItem> {};
template <> struct JournalText<ProAsmcomppath> : RecordText<ProAsmcomppath> {};
template <> struct JournalText<ProGeomitemdata> : RecordText<ProGeomitemdata> {};
template <> struct JournalText<ProDimSense> : RecordText<ProDimSense> {};
template <> struct JournalText<ProDrawingViewDisplay> : RecordText<ProDrawingViewDisplay> {};
template <> struct JournalText<ProdbSurfaceProps> : RecordText<ProdbSurfaceProps> {};
template <> struct JournalText<ProSelectionEnvOption> : RecordText<ProSelectionEnvOption> {};
template <> struct JournalText<ProSimprepAction> : RecordText<ProSimprepAction> {};
template <> struct JournalText<ProSimprepitem> : RecordText<ProSimprepitem> {};
template <> struct JournalText<ProUIPoint> : RecordText<ProUIPoint> {};
template <> struct JournalText<ProUnititem> : RecordText<ProUnititem> {};
template <> struct JournalText<ProUnitsystem> : RecordText<ProUnitsystem> {};
template <> struct JournalText<ProValueData> : RecordText<ProValueData> {};
template <> struct JournalText<ProErrorlist> : RecordText<ProErrorlist> {};
// clang-format on

// A point or a direction, as (x, y, z).
struct PointText {
    static std::string Of(const double* point);
};
template <>
struct JournalText<double*> : PointText {};
// A matrix, row by row.
template <>
struct JournalText<double (*)[4]> {
    static std::string Of(const double (*matrix)[4]);
};
// The two corners of an outline.
template <>
struct JournalText<double (*)[3]> {
    static std::string Of(const double (*corners)[3]);
};

// A list that the caller hands in, with its length.
template <class T>
struct ListOf {
    T* list;
    int count;
};
template <class T>
ListOf(T*, int) -> ListOf<T>;

template <class T>
std::string Describe(const ListOf<T>& of) {
    if (!of.list) return "null";
    return DescribeList(of.count < 0 ? 0 : std::size_t(of.count),
                        [&](std::size_t i) { return DescribeAny(of.list[i]); });
}

// A place for a list that the operation hands out, with the place for its length or, if the host
// keeps that with the array, without.
template <class T>
struct ListOut {
    static constexpr bool kOutput = true;
    T** place;
    const int* count = nullptr;
    bool Missing() const { return place == nullptr; }
};
template <class T>
ListOut(T**) -> ListOut<T>;
template <class T>
ListOut(T**, const int*) -> ListOut<T>;

int SizeOfArray(const void* array);  // 0 for what is no host array

template <class T>
std::string Describe(const ListOut<T>& out) {
    return Describe(ListOf{*out.place, out.count ? *out.count : SizeOfArray(*out.place)});
}

// A host array that the caller hands in.
template <class T>
struct ArrayIn {
    T* array;
    bool Missing() const { return array == nullptr; }
};
template <class T>
ArrayIn(T*) -> ArrayIn<T>;

template <class T>
std::string Describe(const ArrayIn<T>& in) {
    return Describe(ListOf{in.array, SizeOfArray(in.array)});
}

// A record for a name, which is without a terminator when it is full.
struct NameOut {
    static constexpr bool kOutput = true;
    WideChar* place;
    bool Missing() const { return place == nullptr; }
};
std::string Describe(const NameOut& out);

// A place for one number; places for points have three.
struct NumberOut {
    static constexpr bool kOutput = true;
    double* place;
    bool Missing() const { return place == nullptr; }
};
std::string Describe(const NumberOut& out);

// A place for a point.
struct PointOut {
    static constexpr bool kOutput = true;
    double* place;
    bool Missing() const { return place == nullptr; }
};
std::string Describe(const PointOut& out);

}  // namespace simhost
