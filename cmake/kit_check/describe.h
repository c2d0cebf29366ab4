// Types in words that can be compared, whatever they are called: "enum of 4 bytes (void*, wide*)".
// Sizes count and names do not, so that our declarations and a kit's can be compared.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <type_traits>

#include "hostapi/wide.h"

template <class T>
struct Words;

template <class T>
std::string WordsOf() {
    return Words<T>::Get();
}

template <class T, class = void>
constexpr std::size_t kSizeOf = 0;  // of a type that is only declared
template <class T>
constexpr std::size_t kSizeOf<T, std::void_t<decltype(sizeof(T))>> = sizeof(T);

inline std::string Sized(const char* kind, std::size_t size) {
    return std::string(kind) + " of " + std::to_string(size) + (size == 1 ? " byte" : " bytes");
}

template <class T>
struct Words {
    static std::string Get() {
        if constexpr (std::is_same_v<T, WideChar>) return "wide";
        if constexpr (std::is_same_v<T, char>) return "char";
        if constexpr (std::is_void_v<T>) return "void";
        if constexpr (std::is_enum_v<T>) return Sized("enum", sizeof(T));
        if constexpr (std::is_floating_point_v<T>) return Sized("float", sizeof(T));
        if constexpr (std::is_integral_v<T>) {
            return Sized(std::is_unsigned_v<T> ? "unsigned" : "integer", sizeof(T));
        }
        if constexpr (std::is_class_v<T> || std::is_union_v<T>) {
            return kSizeOf<T> == 0 ? "handle" : Sized("record", kSizeOf<T>);
        }
        return "something else";
    }
};

template <class T>
struct Words<const T> {
    static std::string Get() { return "const " + WordsOf<T>(); }
};
template <class T>
struct Words<T*> {
    static std::string Get() {
        return std::is_function_v<T> ? "function " + WordsOf<T>() : WordsOf<T>() + "*";
    }
};
template <class T, std::size_t n>
struct Words<T[n]> {
    static std::string Get() { return WordsOf<T>() + "[" + std::to_string(n) + "]"; }
};

template <class... Arguments>
std::string ListOf() {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + WordsOf<Arguments>()), ...);
    return list;
}
template <class Result, class... Arguments>
struct Words<Result(Arguments...)> {
    static std::string Get() { return WordsOf<Result>() + " (" + ListOf<Arguments...>() + ")"; }
};
template <class Result, class... Arguments>
struct Words<Result(Arguments..., ...)> {
    static std::string Get() {
        return WordsOf<Result>() + " (" + ListOf<Arguments...>() + ", ...)";
    }
};

// One line each: kind, name, a bar, and what it is.
inline void Print(const char* kind, const char* name, const std::string& words) {
    std::printf("%s %s|%s\n", kind, name, words.c_str());
}
template <class T>
void Operation(const char* name) {
    Print("operation", name, WordsOf<T>());
}
template <class T>
void Type(const char* name) {
    Print("type", name, WordsOf<T>());
}
template <class T>
void Field(const char* name, std::size_t offset) {
    Print("field", name, WordsOf<T>() + " at byte " + std::to_string(offset));
}
inline void Code(const char* name, long long value) {
    Print("code", name, std::to_string(value));
}
