// SPDX-License-Identifier: MIT
// Projects the districts of a CSV file into a Gauss-Krueger system and prints some of them.
// Build with QuarnFC.cs, for x64, and keep QuarnFC.dll beside the program.
// Usage: Districts CSV_FILE
using System;

public static class Districts
{
    private const int EpsgCgcs2000Meridian117 = 4548;

    // One row of "code,province,city,district,longitude,latitude"; false at the end.
    private static bool Next(IntPtr csv)
    {
        int result = QuarnNative.qncCsvNextRow(csv, out IntPtr error);
        Quarn.Check(error);
        return result == 1;
    }

    private static string Field(IntPtr csv, int index)
    {
        string text = Quarn.Take(QuarnNative.qncCsvText(csv, index, out IntPtr error));
        Quarn.Check(error);
        return text;
    }

    private static double Number(string text)
    {
        return double.Parse(text, System.Globalization.CultureInfo.InvariantCulture);
    }

    private static void Print(IntPtr csv, IntPtr system)
    {
        double[] point = { Number(Field(csv, 4)), Number(Field(csv, 5)) };
        QuarnNative.qncProject(system, point, point, (UIntPtr)1);
        Console.WriteLine("{0} {1}: east {2:F3} m, north {3:F3} m",
            Field(csv, 0), Field(csv, 3), point[0], point[1]);
    }

    public static int Main(string[] arguments)
    {
        if (arguments.Length != 1) return 2;
        IntPtr csv = QuarnNative.qncCsvOpen(Quarn.Utf8(arguments[0]), out IntPtr error);
        Quarn.Check(error);
        IntPtr system = QuarnNative.qncProjectedFromEpsg(EpsgCgcs2000Meridian117, out error);
        Quarn.Check(error);
        for (int i = 0; i < 5 && Next(csv); ++i) Print(csv, system);
        QuarnNative.qncProjectedFree(system);
        QuarnNative.qncCsvClose(csv);
        return 0;
    }
}
