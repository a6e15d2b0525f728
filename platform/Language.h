#ifndef PLATFORM_LANGUAGE_H
#define PLATFORM_LANGUAGE_H

namespace VT {
namespace Language {
// Languages a terminal may be switched to (two-letter ISO 639 codes).
enum languages_t { LANG_EN = 0, LANG_DE, LANG_FR, LANG_IT, LANG_ES, LANG_NL, LANG_DA, LANG_SV, LANG_FI, LANG_PL, LANG_OTHER };
}
}

#endif
