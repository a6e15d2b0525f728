#ifndef TOOLS_CHECK_REPORT_H
#define TOOLS_CHECK_REPORT_H

#include <QByteArray>
#include <QStringList>
#include <ostream>

#include "tools/check/Checker.h"

// The check's findings for people (one line each, errors first, then a summary) and for
// programs (one JSON document, described in docs/check-format.md).
namespace VT {
namespace Check {

class Report
{
public:
    // Problems and warnings of loading the pool ("file:line: text" or "file: text") as
    // findings of the rule "load", so that they are shown and counted with the others.
    static QVector<Finding> load_findings(const QString& file, const QStringList& problems, const QStringList& warnings);

    // Errors first, then warnings, a summary line, and the VT version the pool needs with what
    // decides it (at most `shown` reasons).
    static void text(const Result& r, const Options& options, std::ostream& os, int shown = 20);
    // The VT version the pool needs with what decides it (at most `shown` reasons).
    static void needed_version(const Result& r, std::ostream& os, int shown = 20);
    // One finding as a line of text, and its hint on a line below.
    static void text(const Finding& f, std::ostream& os);
    static QByteArray json(const QString& file, const Result& r, const Options& options);
};

}
}

#endif
