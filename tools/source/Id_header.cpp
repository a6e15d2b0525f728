#include "tools/source/Id_header.h"

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "tools/describe/Object_names.h"
#include "tools/pool/Labels.h"
#include "tools/source/Language_tables.h"

namespace VT {

bool Id_header::write(const Object_pool& pool, const Options& options, QByteArray& out, QString* error)
{
    QStringList bad;
    int width = 0;
    for (VT_obj* obj : pool.objects()) {
        const QByteArray name(obj->VT_obj_base::get_name());
        if (!Object_names::is_identifier(name))
            bad.append(object_label(obj));
        width = std::max(width, int(name.size()));
    }
    if (!options.name_space.isEmpty() && !Object_names::is_identifier(options.name_space.toUtf8()))
        bad.prepend(QStringLiteral("the namespace '%1'").arg(options.name_space));
    if (!bad.isEmpty()) {
        if (error)
            *error = QStringLiteral("not usable as C names: %1").arg(bad.join(", "));
        return false;
    }

    QByteArray guard = QFileInfo(options.file).fileName().toUpper().toUtf8();
    for (char& c : guard)
        if (!isalnum(uchar(c)))
            c = '_';
    if (guard.isEmpty() || isdigit(uchar(guard[0])))
        guard.prepend("POOL_IDS_");
    const QByteArray ns = options.name_space.toUtf8();
    const bool in_namespace = options.as_constexpr && !ns.isEmpty();

    out = "// Object ids of " + QFileInfo(options.origin).fileName().toUtf8() +
          ", written by vtpool: write it again rather than edit it.\n";
    out += "#ifndef " + guard + "\n#define " + guard + "\n\n";
    if (options.as_constexpr)
        out += "#include <cstdint>\n";
    if (options.declares_objects)
        out += "#include <vector>\n\nnamespace VT {\nclass VT_obj;\n}\n";
    if (options.as_constexpr || options.declares_objects)
        out += "\n";
    if (in_namespace)
        out += "namespace " + ns + " {\n\n";
    for (VT_obj* obj : pool.objects()) {
        const QByteArray name(obj->VT_obj_base::get_name());
        const QByteArray id = QByteArray::number(obj->get_id());
        if (options.as_constexpr)
            out += "constexpr uint16_t " + name.leftJustified(width) + " = " + id + ";\n";
        else
            out += "#define " + name.leftJustified(width) + " " + id + "\n";
    }
    if (options.declares_objects)
        out += "\n// The pool's objects in pool order, built on the first call.\n"
               "const std::vector<VT::VT_obj*>& objects();\n";
    if (options.declares_languages)
        out += QByteArray("\n") + Language_tables::types() + Language_tables::lookup_declaration();
    if (in_namespace)
        out += "\n}\n";
    out += "\n#endif\n";
    return true;
}

}
