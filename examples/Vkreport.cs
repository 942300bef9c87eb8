// Calls vkreport, and prints a few facts of this machine and what is missing. Needs .NET Framework 4.6.1 or later, or
// .NET 6 or later, and no package. The language is C# 5, which the csc.exe of .NET Framework compiles.
//
//   Vkreport.exe PROGRAM [SECONDS]
//
// PROGRAM is the path of vkreport. docs/facts.md has the keys of all facts. Exit code 0: the report is complete.
// 3: sections are missing. 1: there is no report.
using System;
using System.ComponentModel;
using System.Diagnostics;
using System.Globalization;
using System.IO;
using System.Runtime.Serialization.Json;
using System.Text;
using System.Xml;
using System.Xml.Linq;
using System.Xml.XPath;

sealed class NoReport : Exception
{
    public NoReport(string why) : base(why) { }
}

static class Vkreport
{
    // Runs vkreport. Returns its JSON as XML: a member is an element of its name, an item of an array is <item>.
    static XElement MakeReport(string program, double seconds)
    {
        string limit = seconds.ToString(CultureInfo.InvariantCulture);
        // A full path: Windows would search a bare name in several folders, also in the current one.
        var start = new ProcessStartInfo(Path.GetFullPath(program), "--format json --time-limit " + limit);
        start.UseShellExecute = false;
        start.CreateNoWindow = true;
        start.RedirectStandardOutput = start.RedirectStandardError = true;
        start.StandardOutputEncoding = start.StandardErrorEncoding = Encoding.UTF8;
        using (Process process = Process.Start(start))
        {
            // Both at once: vkreport waits while one of the pipes is full.
            var output = process.StandardOutput.ReadToEndAsync();
            var errors = process.StandardError.ReadToEndAsync();
            // vkreport keeps the time limit itself. This one is the last resort, and gives nothing.
            if (!process.WaitForExit(seconds == 0 ? -1 : (int)(1000 * (seconds + 30))))
            {
                process.Kill();
                process.WaitForExit(); // else the pipes are closed while they are read
                throw new NoReport("vkreport did not end");
            }
            if (process.ExitCode == 1)
                throw new NoReport("nothing could be had:\n" + errors.Result);
            if (process.ExitCode == 2)
                throw new NoReport("vkreport does not know these options, perhaps it is older:\n" + errors.Result);
            if (process.ExitCode != 0 && process.ExitCode != 3)
                throw new NoReport("vkreport ended with exit code " + process.ExitCode + ":\n" + errors.Result);
            byte[] json = Encoding.UTF8.GetBytes(output.Result);
            return XElement.Load(JsonReaderWriterFactory.CreateJsonReader(json, XmlDictionaryReaderQuotas.Max));
        }
    }

    // A fact is a text, or has a value for programs and a text. A section or a fact may be missing.
    static void PrintFact(XElement report, string label, string section, string path)
    {
        XElement fact = report.XPathSelectElement("reports/item[1]/sections/item[name='" + section + "']/" + path);
        Console.WriteLine(label + (fact == null ? "unknown" : (fact.Element("text") ?? fact).Value));
    }

    static int Main(string[] arguments)
    {
        if (arguments.Length == 0)
        {
            Console.Error.WriteLine("Usage: Vkreport.exe PROGRAM [SECONDS]");
            return 2;
        }
        try
        {
            double seconds = arguments.Length > 1 ? double.Parse(arguments[1], CultureInfo.InvariantCulture) : 60;
            XElement report = MakeReport(arguments[0], seconds);
            PrintFact(report, "Windows:   ", "windowsVersion", "facts/name");
            PrintFact(report, "Processor: ", "processorRegistryInfo", "processors/item/processorNameString");
            PrintFact(report, "Memory:    ", "memoryInfo", "facts/totalPhys");
            foreach (XElement missing in report.XPathSelectElements("incomplete/missing/item"))
                Console.WriteLine("Missing:   " + missing.Element("section").Value + " " + missing.Element("reason").Value);
            return report.Element("incomplete") == null ? 0 : 3;
        }
        catch (Win32Exception error) // as if there is no such file
        {
            Console.Error.WriteLine("There is no report: " + arguments[0] + " cannot be started: " + error.Message);
        }
        catch (NoReport error)
        {
            Console.Error.WriteLine("There is no report: " + error.Message);
        }
        return 1;
    }
}
