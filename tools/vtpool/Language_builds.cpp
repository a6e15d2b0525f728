#include "tools/vtpool/Language_builds.h"

#include <QDir>
#include <QFileInfo>
#include <iostream>

#include "tools/pool/Partial_pool.h"

namespace Vtpool {
namespace Language_builds {

namespace {

struct Output
{
    QString path;
    QByteArray bytes;
    int objects = 0;
    QString what;
};

// The objects `full` changes against `base`, verified: put over `base` by id they must give
// `full` again. False once the reason is printed.
bool partial_of(const QByteArray& base, const QByteArray& full, const QByteArray& language, Output& out)
{
    QString error;
    QByteArray applied;
    if (!VT::Partial_pool::differing(base, full, out.bytes, &error, &out.objects) ||
        !VT::Partial_pool::apply(base, out.bytes, applied, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return false;
    }
    if (applied != full) {
        std::cerr << "error: the '" << language.constData()
                  << "' partial pool put over the default pool does not give the full pool; nothing written"
                  << std::endl;
        return false;
    }
    out.what = QStringLiteral("the objects '%1' changes").arg(QString::fromUtf8(language));
    return true;
}

// The languages of the description built into `base`; false once the reason is printed.
bool languages_of(const Invocation& in, const std::shared_ptr<const VT::Translations>& t, QList<QByteArray>& out)
{
    if (!t || t->languages().isEmpty()) {
        std::cerr << "error: " << in.argument().toStdString()
                  << " declares no languages (languages=\"en de\" on <object_pool>)" << std::endl;
        return false;
    }
    out = t->languages();
    return true;
}

}

QVector<Option> options()
{
    return {Invocation::language_option(),
            {{"partial-language"}, "CODE", "only the objects whose bytes differ from the default language's build"},
            {{"all-languages"}, "", "into the folder -o: for every language its full pool (NAME_CODE.iop) and, but "
                                    "the default, its partial pool (NAME_CODE_partial.iop)"}};
}

int run(Invocation& in, const Builder& build)
{
    std::shared_ptr<const VT::Translations> translations;
    QByteArray base;
    int base_objects = 0;
    QList<QByteArray> languages;
    if (!build(QByteArray(), base, base_objects, &translations) || !languages_of(in, translations, languages))
        return PROBLEM;
    QVector<Output> outputs;
    if (in.is_set("partial-language")) {
        const QByteArray language = in.value("partial-language").toUtf8();
        if (language == languages.first()) {
            std::cerr << "error: '" << language.constData()
                      << "' is the default language: it changes no object of the default build" << std::endl;
            return PROBLEM;
        }
        Output partial;
        QByteArray full;
        int objects = 0;
        if (!build(language, full, objects, nullptr) || !partial_of(base, full, language, partial))
            return PROBLEM;
        partial.path = in.value("output");
        outputs.append(partial);
    } else {
        const QDir folder(in.value("output"));
        if (!folder.mkpath(".")) {
            std::cerr << "error: cannot make the folder '" << folder.path().toStdString() << "'" << std::endl;
            return PROBLEM;
        }
        const QString name = QFileInfo(in.argument()).completeBaseName();
        for (const QByteArray& language : languages) {
            const QString stem = folder.filePath(name + "_" + QString::fromUtf8(language));
            Output full{stem + ".iop", base, base_objects, QStringLiteral("every object")};
            if (language != languages.first()) {
                Output partial;
                if (!build(language, full.bytes, full.objects, nullptr) ||
                    !partial_of(base, full.bytes, language, partial))
                    return PROBLEM;
                partial.path = stem + "_partial.iop";
                outputs.append(full);
                outputs.append(partial);
            } else {
                outputs.append(full);
            }
        }
    }
    // Every pool is made before the first is written: a language that fails writes nothing.
    for (const Output& o : outputs)
        if (!Invocation::write_output(o.path, o.bytes))
            return PROBLEM;
    for (const Output& o : outputs)
        std::cout << "wrote " << o.objects << " objects (" << o.what.toStdString() << "), " << o.bytes.size()
                  << " bytes to " << o.path.toStdString() << std::endl;
    return OK;
}

}
}
