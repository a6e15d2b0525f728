// vtpool source: C++ source that compiles a pool in.
#include <QFileInfo>
#include <iostream>
#include <sstream>

#include "tools/pool/Pool_file.h"
#include "tools/source/Id_header.h"
#include "tools/source/Source_generator.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

// The pool built in `language` (empty: the default) as the generated pool is: the description
// loaded, made the target terminal's. False once the reason is printed.
bool pool_in(Invocation& in, const Target& target, const QByteArray& language, QByteArray& bytes,
             std::shared_ptr<const VT::Translations>* translations = nullptr)
{
    Object_pool pool;
    VT::Check::Loaded loaded;
    in.set_language(language);
    if (!in.load(pool, false, nullptr, &loaded) || (target.named && !Terminal_options::adapt(in, pool, target, true, false)))
        return false;
    if (translations)
        *translations = loaded.source.translations;
    bytes = VT::Pool_file::write(pool);
    return true;
}

// For a description in several languages, the table of each language; none for others. False
// once the reason is printed.
bool language_tables(Invocation& in, const Target& target, Object_pool& generated,
                     QVector<VT::Language_tables::Table>& out)
{
    std::shared_ptr<const VT::Translations> translations;
    QVector<VT::Language_tables::Language> languages(1);
    if (!pool_in(in, target, QByteArray(), languages[0].pool, &translations))
        return false;
    if (!translations || translations->languages().size() < 2)
        return true;
    // The default language's build is the pool the source re-creates.
    if (languages[0].pool != VT::Pool_file::write(generated)) {
        std::cerr << "error: the pool built in the default language differs from the pool generated" << std::endl;
        return false;
    }
    languages[0].code = translations->default_language();
    for (const QByteArray& code : translations->languages().mid(1)) {
        languages.append({code, QByteArray()});
        if (!pool_in(in, target, code, languages.last().pool))
            return false;
    }
    QString error;
    if (!VT::Language_tables::make(languages, out, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return false;
    }
    return true;
}

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    VT::Source_generator::Options options;
    options.header = in.value("header");
    options.name_space = in.value("namespace");
    if (!options.header.isEmpty() && options.name_space.isEmpty())
        options.name_space = QFileInfo(options.header).completeBaseName();
    // Pool files go through their description, which names every reference.
    Object_pool pool;
    bool is_description = false;
    if (!in.load_named(pool, &is_description))
        return PROBLEM;
    // Named, the terminal gets the pool as vtpool build would give it.
    if (target.named && !Terminal_options::adapt(in, pool, target, true, false))
        return PROBLEM;
    if (is_description && !language_tables(in, target, pool, options.languages))
        return PROBLEM;
    std::ostringstream text;
    QString error;
    if (!VT::Source_generator::generate(pool, in.argument(), text, &error, options)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    QByteArray header;
    if (!options.header.isEmpty() &&
        !VT::Id_header::write(pool, {true, options.name_space, options.header, in.argument(), true,
                                     !options.languages.isEmpty()},
                              header, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    const std::string s = text.str();
    if (!Invocation::write_output(in.value("output"), QByteArray(s.data(), int(s.size()))) ||
        (!options.header.isEmpty() && !Invocation::write_output(options.header, header)))
        return PROBLEM;
    return OK;
}

}

Command source_command()
{
    return {"source",
            "generate C++ source that compiles the pool in",
            {"POOL"},
            "Writes C++ source that re-creates the pool: an Oids enumeration of the object ids,\n"
            "struct Pool_data with the arrays and struct Pool with the objects and the list\n"
            "Pool::objects. Object names must be C++ identifiers; a pool file's objects are\n"
            "named as vtpool describe names them. With --header the source is in a namespace\n"
            "(--namespace, default the header's name) and defines NAMESPACE::objects(), which\n"
            "the header declares beside the object ids. A terminal (--terminal, or its sizes\n"
            "with the sizes the pool was designed for) gets the pool as vtpool build makes it\n"
"that terminal's own: scaled, its fonts fitted, its colours and pictures reduced.\n"
            "A description in several languages also gives a table per language of the objects\n"
            "that switch the terminal to it, and language_table(CODE) to find one\n"
            "(docs/description-format.md).\n",
            QVector<Option>{Option::output("FILE.cpp", "where to write the source"),
                            {{"header"}, "FILE.h", "also write the ID header that declares objects()"},
                            {{"namespace"}, "NAME", "the namespace of the source and its header"},
                            Invocation::names_option(), Option::lenient(), Invocation::vt6_objects_option()} +
                Terminal_options::only({"design-size", "mask-size", "design-key-size", "key-size"}),
            run};
}

}
