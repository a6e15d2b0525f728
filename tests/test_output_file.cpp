// Output files are written whole or not at all: a full disk, a file-size limit or a target
// that cannot be written leaves the old file (or none) and names the path and the reason.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tools/output/Output_file.h"
#include "vtpool_support.h"

using VT::Output_file;

namespace {

// Files of the folder, hidden ones (temporary files) included.
QStringList files_in(const QString& dir)
{
    return QDir(dir).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

}

TEST(Output_file, ReplacesTheTargetOnlyOnceItIsWholeAndSaysWhyWhenItCannot)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString path = tmp.filePath("out.bin");
    QString error;
    ASSERT_TRUE(Output_file::write_file(path, "first", &error)) << error.toStdString();
    EXPECT_EQ(test::read_file(path), "first");
    const mode_t mask = umask(0);
    umask(mask);
    struct stat st;
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0666 & ~mask) << "a new file gets the permissions new files get";

    // A replaced file keeps its permissions; a link stays a link to the replaced file.
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0600), 0);
    const QString link = tmp.filePath("link.bin");
    ASSERT_TRUE(QFile::link(path, link));
    ASSERT_TRUE(Output_file::write_file(link, "second", &error)) << error.toStdString();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(test::read_file(path), "second");
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);

    // Targets that cannot be written: the error names the path and the system's reason.
    struct Case
    {
        QString path;
        const char* reason;
    } const cases[] = {
        {tmp.filePath("missing/out.bin"), "No such file or directory"},
        {path + "/out.bin", "Not a directory"},
        {tmp.path(), "Is a directory"},
        {"/dev/full", "No space left on device"},
    };
    for (const Case& c : cases) {
        EXPECT_FALSE(Output_file::write_file(c.path, "bytes", &error)) << c.path.toStdString();
        EXPECT_EQ(error, QStringLiteral("cannot write '%1': %2").arg(c.path, c.reason));
    }
    if (geteuid() != 0) {
        // (Permissions do not stop the superuser.)
        ASSERT_EQ(chmod(QFile::encodeName(tmp.path()).constData(), 0500), 0);
        EXPECT_FALSE(Output_file::write_file(path, "third", &error));
        EXPECT_TRUE(error.endsWith("Permission denied")) << error.toStdString();
        chmod(QFile::encodeName(tmp.path()).constData(), 0700);
    }
    EXPECT_EQ(test::read_file(path), "second");
    EXPECT_EQ(files_in(tmp.path()), QStringList({"link.bin", "out.bin"})) << "no temporary file is left behind";
    // A device is written in place, never replaced.
    EXPECT_TRUE(Output_file::write_file("/dev/null", "bytes", &error)) << error.toStdString();
    EXPECT_TRUE(QFileInfo("/dev/null").exists() && !QFileInfo("/dev/null").isFile());
}

TEST(Output_file, AFileSizeLimitFailsTheWriteAndKeepsTheOldFile)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString path = tmp.filePath("big.bin");
    ASSERT_TRUE(test::write_file(path, "old"));
    fflush(nullptr);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // Exit 0 when the write failed as it should, 1 when it did not.
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        Output_file out(path);
        bool failed = !out.open();
        for (int i = 0; i < 4 && !failed; ++i)
            out.write(QByteArray(2000, 'x'));
        failed = failed || !out.commit();
        _exit(failed && out.error() == QStringLiteral("cannot write '%1': File too large").arg(path) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << (WIFSIGNALED(status) ? WTERMSIG(status) : 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(test::read_file(path), "old");
    EXPECT_EQ(files_in(tmp.path()), QStringList({"big.bin"}));
}

TEST(Output_file, VtpoolCommandsWriteWholeFilesOrNoneWithStatusOne)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    // A description with a small picture and one of noise, larger than any limit below.
    const QString xml = tmp.filePath("pictures.xml");
    QImage noise(96, 96, QImage::Format_RGB32);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, qRgb((x * 97 + y * 31) % 251, (x * y) % 253, (x + 7 * y) % 241));
    ASSERT_TRUE(noise.save(tmp.filePath("noise.png")));
    ASSERT_TRUE(noise.copy(0, 0, 4, 4).save(tmp.filePath("small.png")));
    ASSERT_TRUE(test::write_file(xml, R"(<object_pool>
  <Working_set name="ws" active_mask="dm"><place object="small" x_location="0" y_location="0"/></Working_set>
  <Data_mask name="dm"><place object="noise" x_location="0" y_location="0"/></Data_mask>
  <Picture_graphic name="noise" file="noise.png" format="2"/>
  <Picture_graphic name="small" file="small.png" format="2"/>
</object_pool>)"));
    const QString pool = tmp.filePath("pool.iop");
    ASSERT_TRUE(test::write_file(pool, "old pool"));
    // A limit of two blocks (ulimit -f counts in blocks of 512 or 1024 bytes): less than the
    // pool, the source, the drawing and the noise picture.
    const QString limit = QStringLiteral("ulimit -f 2");
    struct Case
    {
        QStringList args;
        QString shell_setup;
        QString error;
    } const cases[] = {
        {{"build", xml, "-o", pool}, limit, QStringLiteral("cannot write '%1': File too large").arg(pool)},
        {{"source", xml, "-o", tmp.filePath("pool.cpp")}, limit,
         QStringLiteral("cannot write '%1': File too large").arg(tmp.filePath("pool.cpp"))},
        {{"pictures", xml, "-o", tmp.filePath("pictures")}, limit, "File too large"},
        {{"render", xml, "-o", tmp.filePath("work.png")}, limit,
         QStringLiteral("cannot write '%1': File too large").arg(tmp.filePath("work.png"))},
        {{"build", xml, "-o", "/dev/full"}, "", "cannot write '/dev/full': No space left on device"},
        {{"source", xml, "-o", "/dev/full"}, "", "cannot write '/dev/full': No space left on device"},
        {{"ids", xml, "-o", "/dev/full"}, "", "cannot write '/dev/full': No space left on device"},
        {{"describe", xml, "-o", tmp.filePath("described")}, limit, "File too large"},
        {{"build", xml, "-o", pool + "/x.iop"}, "", QStringLiteral("cannot write '%1/x.iop': Not a directory").arg(pool)},
    };
    for (const Case& c : cases) {
        const test::Outcome r = test::run_vtpool(c.args, c.shell_setup);
        EXPECT_EQ(r.status, 1) << c.args.join(' ').toStdString() << "\n" << r.err.toStdString();
        EXPECT_TRUE(r.err.contains("error: " + c.error) || r.err.contains(c.error)) << r.err.toStdString();
    }
    EXPECT_EQ(test::read_file(pool), "old pool");
    EXPECT_EQ(files_in(tmp.path()), QStringList({"noise.png", "pictures.xml", "pool.iop", "small.png"}))
        << "no partial or temporary file";
    // describe stopped at the picture too large for the limit: no description names it.
    EXPECT_FALSE(QFile::exists(tmp.filePath("described/pool.xml")));
    // The picture that fits is written whole; the one that does not is missing.
    EXPECT_EQ(files_in(tmp.filePath("pictures")), QStringList({"small.png"}));
    EXPECT_EQ(QImage(tmp.filePath("pictures/small.png")).size(), QSize(4, 4));
}
