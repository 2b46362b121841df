// SPDX-License-Identifier: MIT
// Launch options of any values, a line "name=value" each, as the components' command lines; and
// those command lines as the components read them.

#include "Fuzzing.h"

#include <SettingsFolders.h>

#include <CommandLine.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QCoreApplication>
#include <QStringList>

namespace {

using Options = common_ComponentsLaunchOptions;
using suite::OptionGroup;

// What is typed into a field, in words; a field of blanks is one empty word.
QStringList words(const QString& text)
{
    return text.isEmpty() ? QStringList() : text.simplified().split(QLatin1Char(' '));
}

QStringList when(bool condition, const QString& text)
{
    return condition ? words(text) : QStringList();
}

// The values by their names, as the expected command lines are made of them.
class Fields
{
public:
    explicit Fields(const Options& options) : m_options(options) {}

    bool isOn(const char* name) const { return property(name).castToBool(); }
    int number(const char* name) const { return property(name).castToInt(); }
    QString text(const char* name) const { return property(name).castToQString(); }

private:
    common_Property property(const char* name) const
    {
        return m_options[QString::fromLatin1(name)];
    }

    const Options& m_options;
};

QString argument(const char* option, const QString& value)
{
    return QLatin1String(option) + value;
}

QString argument(const char* option, int value)
{
    return argument(option, QString::number(value));
}

QString gpuOption(const Fields& fields)
{
    const QString count = fields.text("Kest.NumberOfGPUs");
    const QString list = fields.text("Kest.GPUsList");
    if (!fields.isOn("Kest.UseGPUforNVIDIA")) {
        return fields.isOn("Kest.DisableGPUNote") ? QString() : QStringLiteral("--use-gpu 0");
    }
    QString result = QStringLiteral("--use-gpu");
    if (!count.isEmpty()) {
        result += QLatin1Char(' ') + QString::number(count.toInt());
    }
    if (!list.isEmpty()) {
        result += (count.isEmpty() ? QStringLiteral(" :") : QStringLiteral(":")) + list;
    }
    return result;
}

QStringList remoteMethod(const Fields& fields, bool remote)
{
    return when(remote && fields.number("Kest.RemoteExecutionMethod") == 1 &&
                    !fields.text("Kest.RemoteHost").trimmed().isEmpty(),
                QStringLiteral("--remote-use-mpi"));
}

QStringList priority(const Fields& fields)
{
    const int value = fields.number("Kest.ProcessPriority");
    return when(value != 2, argument("--priority ", value));
}

QStringList solverSwitches(const Fields& fields)
{
    const bool check = fields.isOn("Kest.CheckGeometryOnly");
    const bool circuit = fields.isOn("Kest.ExportSPICEMTLCircuitFiles");
    return when(check || circuit, QStringLiteral("--kest-options")) +
           when(check, QStringLiteral("--check-only")) +
           when(circuit, QStringLiteral("--mtl-circuit-export"));
}

QStringList sequential(const Fields& fields, bool remote)
{
    return priority(fields) + words(gpuOption(fields)) + remoteMethod(fields, remote) +
           words(fields.text("Kest.AdvancedOptions")) + solverSwitches(fields);
}

QString authentication(int method)
{
    const QStringList names = {QStringLiteral("localonly"), QStringLiteral("sspi"),
                               QStringLiteral("localonly")};
    return method >= 0 && method < names.size() ? names.at(method) : QStringLiteral("default");
}

QStringList parallel(const Fields& fields, bool remote)
{
    return priority(fields) +
           when(fields.isOn("Kest.SpecifyParallelProcesses"),
                argument("-NP ", fields.text("Kest.NumberOfParallelProcesses"))) +
           words(argument("--parallel-authenticate ",
                          authentication(fields.number("Kest.ParallelAuthenticMethod")))) +
           words(gpuOption(fields)) + remoteMethod(fields, remote) +
           words(fields.text("Kest.AdvancedOptions").simplified()) + solverSwitches(fields);
}

QStringList preprocessor(const Fields& fields)
{
    return when(fields.isOn("Prekest.ContinueWithErrors"), QStringLiteral("--ignore-errors")) +
           words(fields.text("Prekest.AdvancedOptions")) +
           when(fields.isOn("Prekest.ExportVariablesToStdOut"),
                QStringLiteral("--print-variables")) +
           when(fields.isOn("Prekest.ExportVariablesToOutFile"),
                QStringLiteral("--print-variables-to-out"));
}

QStringList adaptiveSampling(const Fields& fields)
{
    return when(fields.isOn("Adaptkest.RestartAnalysisNumber"),
                argument("--restart ", fields.number("Adaptkest.AnalysisNumber"))) +
           when(!fields.isOn("Adaptkest.DeleteTempFiles"), QStringLiteral("--keep-files"));
}

QStringList optimiser(const Fields& fields)
{
    return words(argument("-NP ", fields.number("Optkest.NumberOfFarmProcesses"))) +
           when(fields.isOn("Optkest.RestartFromSolverRun"),
                argument("--restart ", fields.number("Optkest.SolverRun"))) +
           when(fields.isOn("Optkest.DeleteAllFiles"), QStringLiteral("-r"));
}

QStringList refinement(const Fields& fields)
{
    const int iterations = fields.number("Amrkest.MaximumIterations");
    const QString frequency = fields.text("Amrkest.Frequency");
    const int threshold = fields.number("Amrkest.ErrorThreshold");
    return when(fields.isOn("Amrkest.SpecifyMaximumIterations") && iterations > 0,
                argument("--max-iterations ", iterations)) +
           when(fields.isOn("Amrkest.SpecifyFrequency") && !frequency.isEmpty(),
                argument("--frequency ", frequency)) +
           when(threshold == 0, QStringLiteral("--error-threshold high")) +
           when(threshold == 2, QStringLiteral("--error-threshold low")) +
           when(!fields.isOn("Amrkest.DeleteTempFiles"), QStringLiteral("--keep-files")) +
           when(fields.isOn("Amrkest.SkipFinalSolve"), QStringLiteral("--skip-final-solve")) +
           words(fields.text("Amrkest.AdvancedOptions"));
}

// What separates words; a no-break space, for one, belongs to its word.
bool isWhiteSpace(QChar character)
{
    return character.unicode() < 128 && character.isSpace();
}

// One blank where the host text has any white space; nothing is lost or joined.
void requireRemoteHost(const Options& options, const QString& host)
{
    QString blanks = host;
    for (QChar& character : blanks) {
        character = isWhiteSpace(character) ? QLatin1Char(' ') : character;
    }
    require(options.getKestRemoteOptions().join(QLatin1Char(' ')) == blanks,
            "the remote host is passed on word by word");
}

void requireEnvironment(const Options& options, const Fields& fields)
{
    QStringList lines = options.getEnvironmentOptions();
    require(lines.takeFirst() ==
                argument("KEST_MPISTATISTICS=", fields.number("Kest.ParallelEnvOptions")),
            "the statistics come first");
    require(lines.join(QLatin1Char('\n')) == fields.text("EnvironmentVariables"),
            "the variables are the lines of their text");
}

void requireExpected(const Options& options, const Fields& fields)
{
    for (const bool remote : {false, true}) {
        require(options.getKestSequentialOptions(remote) == sequential(fields, remote),
                "the sequential solver's options are those of the values");
        require(options.getKestParallelOptions(remote) == parallel(fields, remote),
                "the parallel solver's options are those of the values");
    }
    require(options.getPrekestOptions() == preprocessor(fields), "the pre-processor's options");
    require(options.getAdaptkestOptions() == adaptiveSampling(fields), "adaptive sampling's");
    require(options.getOptkestOptions() == optimiser(fields), "the optimiser's options");
    require(options.getAmrkestOptions() == refinement(fields), "the refinement's options");
}

// What the components make of it: any words are read, and none means two things.
void tryComponent(OptionGroup group, const QStringList& options)
{
    const suite::CommandLine line(group, QStringList(QStringLiteral("dipole.nec")) + options);
    require(!line.errors().isEmpty() || !line.model().isEmpty(), "a model is found or missed");
}

void assign(Options& options, const QString& name, QString value)
{
    if (!options.hasProperty(name)) {
        return;
    }
    common_PropertyReference property = options[name];
    switch (common_PropertyFactory::getMetaData(name).type()) {
    case common_PropertyMetaData::Boolean:
        property.assignFromBool(value == QLatin1String("true"));
        break;
    case common_PropertyMetaData::Integer:
        property.assignFromInt(value.toInt());
        break;
    default:
        property.assignFromQString(value.replace(QStringLiteral("\\n"), QStringLiteral("\n")));
        break;
    }
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    static const SettingsFolders folders; // with no file in them
    const Options::Pointer options = Options::create(ReadOnlyAccess);
    while (!input.isAtEnd()) {
        const QString line = FuzzedInput::decoded(input.line());
        const int sign = line.indexOf(QLatin1Char('='));
        assign(*options, line.left(sign), sign < 0 ? QString() : line.mid(sign + 1));
    }
    const Fields fields(*options);
    requireExpected(*options, fields);
    requireRemoteHost(*options, fields.text("Kest.RemoteHost"));
    requireEnvironment(*options, fields);
    tryComponent(OptionGroup::Prekest, options->getPrekestOptions());
    tryComponent(OptionGroup::Runkest, options->getKestSequentialOptions(true));
    tryComponent(OptionGroup::Runkest, options->getKestParallelOptions(true));
    tryComponent(OptionGroup::Adaptkest, options->getAdaptkestOptions());
    tryComponent(OptionGroup::Optkest, options->getOptkestOptions());
    tryComponent(OptionGroup::Amrkest, options->getAmrkestOptions());
}
