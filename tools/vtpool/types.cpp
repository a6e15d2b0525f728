// vtpool types and vtpool attributes: the object reference, from the classes themselves.
#include <iostream>

#include "tools/reference/Reference.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int types(Invocation& in)
{
    const QString text = in.is_set("markdown") ? VT::Reference::markdown() : VT::Reference::types_text();
    if (in.is_set("output"))
        return Invocation::write_output(in.value("output"), text.toUtf8()) ? OK : PROBLEM;
    std::cout << text.toStdString();
    return OK;
}

int attributes(Invocation& in)
{
    const QString type = in.argument();
    const VT::Class_facts* facts = VT::class_facts(type.toUtf8());
    bool numeric = false;
    const unsigned number = type.toUInt(&numeric, 0);
    for (const VT::Class_facts* c : VT::all_class_facts())
        if (!facts && numeric && c->type == number)
            facts = c;
    if (!facts)
        for (const VT::Class_facts* c : VT::all_class_facts())
            if (QString::fromLatin1(c->name).compare(type, Qt::CaseInsensitive) == 0)
                facts = c;
    if (!facts)
        return in.usage_error(QStringLiteral("no object type '%1' (vtpool types lists them)").arg(type));
    std::cout << VT::Reference::attributes_text(*facts).toStdString();
    return OK;
}

}

Command types_command()
{
    return {"types",
            "list the object types, with their numbers and VT versions",
            {},
            "Lists every object type this build has a class for: its type number, the VT\n"
            "version that has it and its bytes when its lists are empty. --markdown writes the\n"
            "whole object reference instead (docs/objects.md), every type with its attributes.\n",
            {{{"markdown"}, "", "the whole object reference, in Markdown"},
             {{"o", "output"}, "FILE", "write to FILE instead of the standard output"}},
            types};
}

Command attributes_command()
{
    return {"attributes",
            "list the attributes of an object type",
            {"TYPE"},
            "Lists the attributes of TYPE (a name such as Output_number, or a type number) in byte\n"
            "order: where each starts, its size, kind, range, the default a description leaves it\n"
            "at, its attribute id (AID), the names a description may also use for it, how its\n"
            "lists are written, and what the bits and values of options and enumerations mean.\n",
            {},
            attributes};
}

}
