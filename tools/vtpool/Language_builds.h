#ifndef TOOLS_VTPOOL_LANGUAGE_BUILDS_H
#define TOOLS_VTPOOL_LANGUAGE_BUILDS_H

#include <QByteArray>
#include <QVector>
#include <functional>
#include <memory>

#include "tools/description/Translations.h"
#include "tools/vtpool/Command.h"

// vtpool build of a description in several languages: the partial pool of one language, and
// every language's full and partial pool at once.
namespace Vtpool {
namespace Language_builds {

// Builds the input in `language` (empty: the default) into `bytes` and counts its objects;
// `translations`, when given, receives the description's languages. False once the reason
// is printed.
typedef std::function<bool(const QByteArray& language, QByteArray& bytes, int& objects,
                           std::shared_ptr<const VT::Translations>* translations)>
    Builder;

// --language, --partial-language and --all-languages.
QVector<Option> options();
// Runs --partial-language or --all-languages; returns the exit status.
int run(Invocation& in, const Builder& build);

}
}

#endif
