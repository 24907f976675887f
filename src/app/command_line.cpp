// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/command_line.h"

#include "app/export.h"
#include "app/import_command.h"
#include "app/program.h"
#include "app/screens.h"
#include "store/disk.h"

#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>

#include <cstdio>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

struct Option {
    const char16_t *names; // with a comma between them
    const char16_t *value; // what follows it; empty for nothing
    const char16_t *says;
    bool window; // the program comes up with it all the same
};

constexpr Option options[] = {
    {u"help,h,aide", u"", u"Affiche cette aide.", false},
    {u"version,v", u"", u"Affiche la version de Circuidex.", false},
    {u"dossier", u"DOSSIER", u"Travaille sur les fichiers de ce dossier.", true},
    {u"liste", u"", u"Donne le nom et le titre de tous les écrans.", false},
    {u"exporter", u"ÉCRAN",
     u"Écrit ce que montre cet écran, nommé comme dans la liste, par exemple Form6. Avec « tout » : "
     u"tous ceux qui ont un tableau ou une courbe, chacun dans son fichier.",
     false},
    {u"saison", u"ANNÉE", u"La saison à exporter ; sinon celle sur laquelle le programme s'ouvrirait.", false},
    {u"format", u"FORMAT",
     u"csv, html, json, png, pdf, ou pour une courbe svg ; sinon d'après la fin du nom du "
     u"fichier, ou csv.",
     false},
    {u"vers", u"FICHIER", u"Le fichier à écrire, avec « tout » le dossier ; sinon la sortie standard.", false},
    {u"importer", u"ZIP", u"Importe de cette archive de F1DB les saisons nommées derrière : « --importer ZIP 2003 2004 ».", false},
    {u"remplacer", u"", u"Avec « --importer » : remplace aussi les saisons qui existent, après une copie.", false},
};

QStringList namesOf(const Option &option)
{
    return QString::fromUtf16(option.names).split(u',');
}

int tell(const QString &fault, int status)
{
    std::fputs(qPrintable(u"circuidex : "_s + fault + u'\n'), stderr);
    return status;
}

// On standard output, which may be a full disk.
int say(const QByteArray &text)
{
    QFile out;
    if (out.open(stdout, QIODevice::WriteOnly) && out.write(text) == text.size() && out.flush())
        return exits::done;
    return tell(u"la sortie n'a pas pu être écrite."_s, exits::failed);
}

// A script reads what the program itself says, and not what Qt remarks on the machine.
void silence(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg)
        std::fputs(qPrintable(message + u'\n'), stderr);
}

bool write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray listOfScreens()
{
    QByteArray list;
    for (const ScreenRow &row : screenRows())
        list += (row.name + u'\t' + row.title.trimmed() + u'\n').toUtf8();
    return list;
}

}

CommandLine::CommandLine(const QStringList &arguments) : m_arguments(arguments)
{
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parser.setApplicationDescription(
        u"Le championnat du monde de Formule 1, course après course. Sans option, le programme s'ouvre."_s);
    for (const Option &option : options)
        m_parser.addOption({namesOf(option), QString::fromUtf16(option.says), QString::fromUtf16(option.value)});
    m_understood = m_parser.parse(arguments);
}

bool CommandLine::wantsWindow() const
{
    for (const Option &option : options)
        if (!option.window && m_parser.isSet(namesOf(option).constFirst()))
            return false;
    return true;
}

QString CommandLine::fault() const
{
    if (const QStringList unknown = m_parser.unknownOptionNames(); !unknown.isEmpty())
        return u"option inconnue : « %1 »."_s.arg(unknown.constFirst());
    if (!m_understood && !m_arguments.constLast().contains(u'='))
        return u"il manque une valeur après « %1 »."_s.arg(m_arguments.constLast());
    if (!m_understood)
        return u"une option a reçu une valeur qu'elle ne prend pas."_s;
    const QStringList others = m_parser.positionalArguments(); // the seasons to import
    if (has(u"importer") && others.isEmpty())
        return u"« --importer » demande au moins une année."_s;
    if (has(u"remplacer") && !has(u"importer"))
        return u"« --remplacer » va avec « --importer »."_s;
    if (!others.isEmpty() && !has(u"importer"))
        return u"argument inattendu : « %1 »."_s.arg(others.constFirst());
    return {};
}

std::optional<int> CommandLine::run() const
{
    if (const QString wrong = fault(); !wrong.isEmpty())
        return tell(wrong + u" « circuidex --help » donne les options."_s, exits::wrongUse);
    if (const QString missing = missingFolder(); !missing.isEmpty())
        return tell(missing, exits::failed);
    if (has(u"help"))
        return say(m_parser.helpText().toUtf8());
    if (has(u"version"))
        return say((u"Circuidex "_s + QCoreApplication::applicationVersion() + u'\n').toUtf8());
    if (has(u"liste"))
        return say(listOfScreens());
    if (has(u"importer"))
        return imported();
    if (!wantsWindow())
        return exported();
    return std::nullopt;
}

// "--format", otherwise what the file's name ends in, otherwise CSV; absent for another one.
std::optional<Format> CommandLine::format() const
{
    if (has(u"format"))
        return formatNamed(value(u"format"));
    return formatNamed(QFileInfo(value(u"vers")).suffix()).value_or(Format::csv);
}

int CommandLine::exported() const
{
    if (!has(u"exporter"))
        return tell(u"« --saison », « --format » et « --vers » vont avec « --exporter »."_s, exits::wrongUse);
    const auto form = format();
    if (!form)
        return tell(
            u"format inconnu : « %1 » ; les formats sont csv, html, json, png, svg et pdf."_s.arg(value(u"format")),
            exits::wrongUse);
    const bool all = value(u"exporter") == u"tout";
    if (all && !has(u"vers"))
        return tell(u"« --exporter tout » demande un dossier : « --vers DOSSIER »."_s, exits::wrongUse);
    if (has(u"vers") && disk::inside(folder().string(), value(u"vers").toStdString()))
        return tell(u"« %1 » est dans le dossier des saisons, où rien n'est écrit."_s.arg(value(u"vers")),
                    exits::failed);
    Export source(folder(), userNumbers(), value(u"saison"));
    if (!source.fault().isEmpty())
        return tell(source.fault(), exits::failed);
    return all ? everything(source, *form) : one(source, *form);
}

int CommandLine::one(Export &source, Format form) const
{
    const QString name = source.nameOf(value(u"exporter"));
    if (name.isEmpty())
        return tell(u"écran inconnu : « %1 » ; « circuidex --liste » les donne."_s.arg(value(u"exporter")),
                    exits::wrongUse);
    const auto bytes = source.taken(name, form);
    if (!bytes)
        return tell(source.fault(), exits::failed);
    if (!has(u"vers"))
        return say(*bytes);
    return write(value(u"vers"), *bytes) ? exits::done
                                         : tell(u"« %1 » n'a pas pu être écrit."_s.arg(value(u"vers")), exits::failed);
}

int CommandLine::everything(Export &source, Format form) const
{
    const QDir into(value(u"vers"));
    if (!into.mkpath(u"."_s))
        return tell(u"le dossier « %1 » n'a pas pu être créé."_s.arg(value(u"vers")), exits::failed);
    for (const QString &name : source.screens()) {
        const auto bytes = source.taken(name, form, true);
        const QString path = into.filePath(name + u'.' + circuidex::nameOf(form));
        if (bytes && !write(path, *bytes))
            return tell(u"« %1 » n'a pas pu être écrit."_s.arg(path), exits::failed);
    }
    return exits::done;
}

int CommandLine::imported() const
{
    ImportOrder order{value(u"importer").toStdString(), {}, has(u"remplacer")};
    for (const QString &year : m_parser.positionalArguments())
        order.years.push_back(year.toStdString());
    const auto line = [](const std::string &text) { say(QByteArray::fromStdString(text) + '\n'); };
    const std::string failure = importSeasons(folder(), userNumbers(), order, line);
    return failure.empty() ? exits::done : tell(QString::fromStdString(failure), exits::failed);
}

QString CommandLine::missingFolder() const
{
    std::error_code ignored; // what can't be looked at isn't there
    const bool missing = has(u"dossier") && !std::filesystem::is_directory(folder(), ignored);
    return missing ? u"le dossier « %1 » n'existe pas."_s.arg(value(u"dossier")) : QString();
}

std::filesystem::path CommandLine::folder() const
{
    if (!has(u"dossier"))
        return programFolder();
    std::error_code ignored; // a path that can't be resolved stays as it was given
    const std::filesystem::path given = value(u"dossier").toStdString();
    std::filesystem::path whole = std::filesystem::absolute(given, ignored);
    return whole.empty() ? given : whole;
}

void chooseDisplay(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const CommandLine asked(arguments);
    const bool displayed = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const bool fails = !asked.fault().isEmpty() || !asked.missingFolder().isEmpty();
    if (asked.wantsWindow() && (displayed || !fails))
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(silence);
}

}
