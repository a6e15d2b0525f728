#include "tools/describe/Describer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtGlobal>
#include <cstdio>
#include <iostream>
#include <sstream>

#include "tools/output/Output_file.h"
#include "tools/pool/Labels.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"
#include "tools/reference/Class_facts.h"

namespace VT {

namespace {

const char* const DESCRIPTION_FILE = "pool.xml";

// Holds back what the library writes on the standard streams while pictures are decoded and the
// check builds the description: its warnings about the pool were given when the pool was read.
// The warnings of Qt's image decoders are held back too ("libpng warning: iCCP: ..."): a picture
// that does not decode is kept as bytes, with a comment in the description saying why.
class Quiet
{
public:
    Quiet()
        : out(std::cout.rdbuf(held.rdbuf())), err(std::cerr.rdbuf(held.rdbuf())),
          qt(qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
              if (type == QtFatalMsg)
                  std::fprintf(stderr, "%s\n", qPrintable(text));
          }))
    {
    }
    ~Quiet()
    {
        qInstallMessageHandler(qt);
        std::cout.rdbuf(out);
        std::cerr.rdbuf(err);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    std::ostringstream held;
    std::streambuf* out;
    std::streambuf* err;
    QtMessageHandler qt;
};

// The attribute of `obj` that holds byte `at` of its bytes (0: the first byte of the id).
QByteArray attribute_at(VT_obj& obj, int at)
{
    if (at < 3)
        return at < 2 ? "id" : "type";
    int offset = 3;
    const VT_obj::Lock guard(obj);
    QByteArray name;
    for (uint16_t i = 0; i < obj.get_num_every_attribute() && name.isEmpty(); ++i)
        if (Attribute* a = obj.get_every_attribute(i)) {
            offset += a->num_bytes();
            if (at < offset)
                name = a->name ? a->name : "";
        }
    return name;
}

}

QString Describer::first_difference(Object_pool& pool, const QByteArray& expected)
{
    int offset = 0;
    for (VT_obj* obj : pool.objects()) {
        const QByteArray bytes = Pool_file::object_bytes(*obj);
        const QByteArray there = expected.mid(offset, bytes.size());
        if (bytes != there) {
            int at = 0;
            while (at < bytes.size() && at < there.size() && bytes[at] == there[at])
                ++at;
            return QStringLiteral("%1 comes back different, from its byte %2 on (attribute '%3')")
                .arg(object_label(obj))
                .arg(at)
                .arg(QString::fromLatin1(attribute_at(*obj, at)));
        }
        offset += bytes.size();
    }
    return offset < expected.size() ? QStringLiteral("the pool comes back %1 bytes short").arg(expected.size() - offset)
                                     : QStringLiteral("the pool comes back longer");
}

QString Describer::fatal_when_built(VT_obj& obj)
{
    auto null_reference = [&](const char* attribute) {
        const int at = obj.find_attribute(attribute);
        if (at < 0)
            return false;
        const QByteArray bytes = attribute_bytes(*obj.get_every_attribute(uint16_t(at)));
        return bytes == QByteArray(2, char(0xFF));
    };
    QString why;
    const VT_obj::Lock guard(obj);
    switch (obj.get_type()) {
    case VT_obj_type::TYPE_LINE:
    case VT_obj_type::TYPE_RECTANGLE:
        if (null_reference("line_attributes"))
            why = QStringLiteral("has no line attributes (65535)");
        break;
    case VT_obj_type::TYPE_KEY: {
        const int at = obj.find_attribute("key_code");
        if (at >= 0 && attribute_bytes(*obj.get_every_attribute(uint16_t(at))) == QByteArray(1, '\0'))
            why = QStringLiteral("has key code 0");
        break;
    }
    case VT_obj_type::TYPE_ANIMATION: {
        const int at = obj.find_attribute("child_location");
        auto* list = at < 0 ? nullptr
                            : dynamic_cast<Attribute_list<Attribute_object_placement>*>(
                                  obj.get_every_attribute(uint16_t(at)));
        for (uint32_t k = 0; list && k < list->get_length(); ++k)
            if ((*list)[k].get_object_id() == VT_obj::NULL_ID)
                why = QStringLiteral("names the NULL object as child %1").arg(k + 1);
        break;
    }
    default: break;
    }
    return why;
}

bool Describer::describe(Object_pool& pool, const QByteArray& expected, const Options& options,
                         Written_description& out, QStringList& problems, QStringList& warnings, Object_pool* built)
{
    Quiet quiet;
    const int before = problems.size();
    QHash<uint16_t, VT_obj*> ids;
    for (VT_obj* obj : pool.objects()) {
        if (VT_obj* other = ids.value(obj->get_id()))
            problems.append(QStringLiteral("%1 and %2 share id %3; a description gives each id once")
                                .arg(object_label(other), object_label(obj))
                                .arg(obj->get_id()));
        ids.insert(obj->get_id(), obj);
        const QString fatal = fatal_when_built(*obj);
        if (!fatal.isEmpty())
            problems.append(QStringLiteral("%1 %2, which the library refuses when it reads a description")
                                .arg(object_label(obj), fatal));
    }
    if (problems.size() > before)
        return false;

    Description_writer::Options how;
    how.names = Object_names::choose(pool, options.names, warnings);
    how.origin = options.origin;
    how.languages = options.languages;
    if (!Description_writer::write(pool, how, out, problems))
        return false;

    // The description is built as `vtpool build` would build it, from files in a folder.
    QTemporaryDir folder;
    Object_pool scratch;
    Object_pool& check = built ? *built : scratch;
    QStringList build_problems, build_warnings;
    if (!folder.isValid() || !save(out, folder.path(), problems))
        return false;
    if (!Pool_loader::load(QDir(folder.path()).filePath(DESCRIPTION_FILE), check, build_problems, build_warnings)) {
        problems.append(QStringLiteral("the description written does not build:"));
        problems += build_problems;
        return false;
    }
    const QByteArray again = Pool_file::write(check);
    if (again != expected) {
        problems.append(QStringLiteral("the description written does not give the pool's bytes back: %1")
                            .arg(first_difference(check, expected)));
        return false;
    }
    return !options.languages || builds_languages(*options.languages, folder.path(), problems);
}

bool Describer::builds_languages(const Described_languages& languages, const QString& folder, QStringList& problems)
{
    for (const QByteArray& code : languages.codes.mid(1)) {
        Object_pool pool;
        QStringList build_problems, build_warnings;
        Language_choice choice{code, nullptr};
        const QString language = QString::fromUtf8(code);
        if (!Pool_loader::load(QDir(folder).filePath(DESCRIPTION_FILE), pool, build_problems, build_warnings, false,
                               nullptr, nullptr, false, &choice)) {
            problems.append(QStringLiteral("the description written does not build in '%1':").arg(language));
            problems += build_problems;
            return false;
        }
        const QByteArray expected = languages.pools.value(code);
        if (Pool_file::write(pool) != expected) {
            problems.append(QStringLiteral("the description written does not give the '%1' pool back: %2")
                                .arg(language, first_difference(pool, expected)));
            return false;
        }
    }
    return true;
}

bool Describer::load_named(const QString& path, const Object_names::By_id& names, Object_pool& pool,
                           QStringList& problems, QStringList& warnings, bool lenient)
{
    bool is_description = false;
    if (names.isEmpty()) {
        // A description names everything already.
        QFile f(path);
        if (f.open(QIODevice::ReadOnly) && Pool_loader::looks_like_description(path, f.read(64)))
            return Pool_loader::load(path, pool, problems, warnings, false, &is_description, nullptr, lenient);
    }
    Object_pool read;
    read.set_vt6_objects(pool.vt6_objects());
    if (!Pool_loader::load(path, read, problems, warnings, false, &is_description, nullptr, lenient))
        return false;
    QByteArray expected = Pool_file::write(read);
    if (!is_description) {
        QFile f(path);
        if (f.open(QIODevice::ReadOnly) && f.readAll() != expected)
            warnings.append(QStringLiteral("%1: the pool as read differs from the file (values out of range)").arg(path));
    }
    Written_description text;
    return describe(read, expected, {names, path}, text, problems, warnings, &pool);
}

bool Describer::save(const Written_description& text, const QString& folder, QStringList& problems)
{
    // The description last: it is there only once everything it names is.
    QVector<Written_description::File> files = text.files;
    files.append({QString::fromLatin1(DESCRIPTION_FILE), text.xml});
    const QDir dir(folder);
    for (const Written_description::File& f : files) {
        const QString path = dir.filePath(f.path);
        if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
            problems.append(QStringLiteral("cannot create the folder of '%1'").arg(path));
            return false;
        }
        QString error;
        if (!Output_file::write_file(path, f.bytes, &error)) {
            problems.append(error);
            return false;
        }
    }
    return true;
}

}
