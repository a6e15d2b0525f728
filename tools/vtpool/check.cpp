// vtpool check: the pool against what a terminal expects of it, rule by rule.
#include <cstring>
#include <iostream>

#include "tools/check/Check_tool.h"
#include "tools/check/Rules.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    const QString format = in.is_set("format") ? in.value("format") : QStringLiteral("text");
    if (format != "text" && format != "json")
        return in.usage_error("--format takes text or json");
    VT::Check::Check_request request;
    request.path = in.argument();
    request.options.vt_version = target.terminal.vt_version;
    request.json = format == "json";
    request.werror = in.is_set("werror");
    request.verbose = in.is_set("verbose");
    request.language = in.value("language").toUtf8();
    request.lenient = in.is_set("lenient");
    request.vt6_objects = in.vt6_objects();
    return VT::Check::run_check(request, std::cout);
}

// The help, and the rules with their severities after it.
const char* help()
{
    static const std::string text = [] {
        std::string h = "Checks the pool against what terminals expect of it: references, containment,\n"
                        "ids, macros, events, ranges, pictures and more (the rules below). Prints one\n"
                        "line per finding, errors first, then a summary and the lowest VT version the\n"
                        "pool needs with the objects that decide it (docs/check-format.md).\n"
                        "Exit status: 0 no errors, 1 errors (or warnings with --werror), 2 bad usage.\n"
                        "\n"
                        "Rules:\n";
        int width = 0;
        for (const VT::Check::Rule& r : VT::Check::rules())
            width = std::max(width, int(strlen(r.id)) + 2);
        for (const VT::Check::Rule& r : VT::Check::rules())
            h += "  " + QString::fromLatin1(r.id).leftJustified(width).toStdString() +
                 (r.severity == VT::Check::Severity::error ? "error    " : "warning  ") + r.summary + "\n";
        return h;
    }();
    return text.c_str();
}

}

Command check_command()
{
    return {"check",
            "check the pool against what terminals expect; report the VT version needed",
            {"POOL"},
            help(),
            Terminal_options::only({"vt-version"}) +
                QVector<Option>{{{"format"}, "text|json", "one line per finding (text), or one JSON document"},
                                {{"werror"}, "", "exit with status 1 on warnings too"},
                                Invocation::language_option(),
                                {{"verbose"}, "", "also show what the library said that is reported otherwise"},
                                Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
