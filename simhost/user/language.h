// Whether the person before the host reads Chinese.
#pragma once

namespace simhost {

// By VX_LANGUAGE, else LC_ALL, else LC_MESSAGES, else LANG. Only what explains follows it; what can
// fail is said in English, so that scripts and their transcripts mean the same everywhere.
bool InChinese();

// The text of the two that the person reads.
inline const char* Either(const char* english, const char* chinese) {
    return InChinese() ? chinese : english;
}

}  // namespace simhost
