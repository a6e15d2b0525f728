#ifndef TOOLS_CHECK_LANGUAGE_RULES_H
#define TOOLS_CHECK_LANGUAGE_RULES_H

namespace VT {
namespace Check {

class Context;

// The rules about the languages of a description that declares them (languages="en de" on
// its root): the texts each language lacks, and whether the working set lists the languages
// that have texts and only those. Pool files carry one language and are not looked at.
void missing_texts(Context& c);
void undeclared_languages(Context& c);
void languages_without_texts(Context& c);

}
}

#endif
