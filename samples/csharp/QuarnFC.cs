// SPDX-License-Identifier: MIT
// QuarnFC from C#: declarations of the flat C interface, and text and errors as C# wants them.
// They serve PowerShell, too: Add-Type -Path QuarnFC.cs.
//
// Texts are UTF-8 with a terminating zero: Quarn.Utf8 makes one, Quarn.Take reads one that a
// function returned and releases it. Compile for x64.
using System;
using System.Runtime.InteropServices;
using System.Text;

public static class QuarnNative
{
    private const string Dll = "QuarnFC";

    [DllImport(Dll)] public static extern uint qnGetVersion();
    [DllImport(Dll)] public static extern void qnFreeMem(IntPtr buffer);
    [DllImport(Dll)] public static extern void qnCloseHandle(IntPtr handle);

    // --- Errors and text ---
    [DllImport(Dll)] public static extern int qncInterfaceVersion();
    [DllImport(Dll)] public static extern int qncErrorCode(IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncErrorMessage(IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncUtf8FromAnsi(byte[] ansi, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncAnsiFromUtf8(byte[] utf8, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncIsUtf8(byte[] text, UIntPtr size, out UIntPtr offset);

    // --- JSON documents ---
    [DllImport(Dll)] public static extern IntPtr qncJsonParse(byte[] text, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncJsonParseA(byte[] text, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncJsonReadFile(byte[] path, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonSaveFile(IntPtr value, byte[] path, int utf8, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonLoadStrict(byte[] text, UIntPtr size, out UIntPtr offset,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonWriteStrict(IntPtr value, int indent, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncJsonNewObject(out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncJsonNewArray(out IntPtr error);
    [DllImport(Dll)] public static extern void qncJsonFree(IntPtr value);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonWrite(IntPtr value, int indent, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonWriteA(IntPtr value, int indent, out IntPtr error);
    [DllImport(Dll)] public static extern int qncJsonType(IntPtr value);
    [DllImport(Dll)] public static extern int qncJsonCount(IntPtr value);
    [DllImport(Dll)] public static extern IntPtr qncJsonAt(IntPtr value, int index);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonKey(IntPtr value, int index, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncJsonFind(IntPtr @object, byte[] path);
    [DllImport(Dll)] public static extern IntPtr qncJsonFindValue(IntPtr value, byte[] place);
    [DllImport(Dll)] public static extern IntPtr qncJsonText(IntPtr value, out IntPtr error);
    [DllImport(Dll)] public static extern int qncJsonNumber(IntPtr value, out double number);
    [DllImport(Dll)] public static extern int qncJsonBool(IntPtr value, out int flag);
    [DllImport(Dll)]
    public static extern int qncJsonSetText(IntPtr @object, byte[] path,
        byte[] text, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonSetNumber(IntPtr @object, byte[] path,
        double number, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonSetBool(IntPtr @object, byte[] path,
        int flag, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonSetNull(IntPtr @object, byte[] path, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonSetValue(IntPtr @object, byte[] path,
        IntPtr value, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonRemove(IntPtr @object, byte[] key, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonAppendText(IntPtr array, byte[] text, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonAppendNumber(IntPtr array, double number, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonAppendBool(IntPtr array, int flag, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonAppendValue(IntPtr array, IntPtr value, out IntPtr error);

    // --- CSV files ---
    [DllImport(Dll)] public static extern IntPtr qncCsvOpen(byte[] path, out IntPtr error);
    [DllImport(Dll)] public static extern void qncCsvClose(IntPtr csv);
    [DllImport(Dll)] public static extern int qncCsvHeaderCount(IntPtr csv);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvHeader(IntPtr csv, int index, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncCsvHeaderIndex(IntPtr csv, byte[] name, out IntPtr error);
    [DllImport(Dll)] public static extern int qncCsvNextRow(IntPtr csv, out IntPtr error);
    [DllImport(Dll)] public static extern int qncCsvCount(IntPtr csv);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvText(IntPtr csv, int index, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextA(IntPtr csv, int index, out IntPtr error);
    [DllImport(Dll)] public static extern int qncCsvRewind(IntPtr csv, out IntPtr error);

    // --- Coordinate systems ---
    [DllImport(Dll)] public static extern IntPtr qncGeographicKnown(int system, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncGeographicNew(double semiMajorAxis,
        double inverseFlattening, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncGeographicFromWkt(byte[] wkt, out IntPtr error);
    [DllImport(Dll)] public static extern void qncGeographicFree(IntPtr system);
    [DllImport(Dll)] public static extern IntPtr qncGeographicWkt(IntPtr system, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncGeographicEllipsoid(IntPtr system,
        out double semiMajorAxis, out double inverseFlattening);
    [DllImport(Dll)]
    public static extern int qncGeographicToEarthFixed(IntPtr system, double[] from,
        double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncEarthFixedToGeographic(IntPtr system, double[] from,
        double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern IntPtr qncProjectedNew(IntPtr geographic, double centralMeridian,
        double falseEasting, double falseNorthing,
        double scaleFactor, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncProjectedFromWkt(byte[] wkt, out IntPtr error);
    [DllImport(Dll)] public static extern IntPtr qncProjectedFromEpsg(int code, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncProjectedFromUtmZone(int zone, out IntPtr error);
    [DllImport(Dll)] public static extern void qncProjectedFree(IntPtr system);
    [DllImport(Dll)] public static extern IntPtr qncProjectedWkt(IntPtr system, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncProjectedGeographic(IntPtr system, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncProjectedParameters(IntPtr system, out double centralMeridian,
        out double falseEasting, out double falseNorthing, out double scaleFactor);
    [DllImport(Dll)]
    public static extern int qncProject(IntPtr system, double[] from, double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncUnproject(IntPtr system, double[] from, double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncProjectWebMercator(double[] from, double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncUnprojectWebMercator(double[] from, double[] to, UIntPtr count);

    // --- Codecs and digests ---
    [DllImport(Dll)]
    public static extern IntPtr qncBase64Encode(byte[] data, UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncBase32Encode(byte[] data, UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncBase64Decode(byte[] text, out UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncBase32Decode(byte[] text, out UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncMd5(byte[] data, UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncCrc64(byte[] data, UIntPtr size, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncHmacSha256(byte[] key, UIntPtr keySize, byte[] data, UIntPtr size,
        byte[] digest, out IntPtr error);

    // --- Digests of messages in pieces ---
    [DllImport(Dll)]
    public static extern IntPtr qncDigestNew(int kind, byte[] key, UIntPtr keySize,
        out IntPtr error);
    [DllImport(Dll)] public static extern void qncDigestFree(IntPtr digest);
    [DllImport(Dll)]
    public static extern void qncDigestUpdate(IntPtr digest, byte[] data, UIntPtr size);
    [DllImport(Dll)] public static extern IntPtr qncDigestFinish(IntPtr digest, out IntPtr error);

    // --- Strict JSON ---
    [DllImport(Dll)]
    public static extern IntPtr qncJsonTextParse(byte[] text, UIntPtr size, out UIntPtr offset,
        out IntPtr error);
    [DllImport(Dll)] public static extern void qncJsonTextFree(IntPtr document);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonTextWrite(IntPtr document, out IntPtr error);
    [DllImport(Dll)] public static extern int qncJsonTextType(IntPtr document, byte[] pointer);
    [DllImport(Dll)] public static extern int qncJsonTextCount(IntPtr document, byte[] pointer);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonTextSource(IntPtr document, byte[] pointer,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncJsonTextString(IntPtr document, byte[] pointer, out UIntPtr size,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonTextNumber(IntPtr document, byte[] pointer, out double number);
    [DllImport(Dll)]
    public static extern int qncJsonTextReplace(IntPtr document, byte[] pointer, byte[] json,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonTextAdd(IntPtr document, byte[] pointer, byte[] json,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncJsonTextRemove(IntPtr document, byte[] pointer, out IntPtr error);

    // --- CSV with options ---
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextOpen(byte[] path, byte delimiter, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextOpenEncoded(byte[] path, byte delimiter, int encoding,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextFromMemory(byte[] text, UIntPtr size, byte delimiter,
        out IntPtr error);
    [DllImport(Dll)] public static extern void qncCsvTextClose(IntPtr csv);
    [DllImport(Dll)] public static extern int qncCsvTextNextRow(IntPtr csv, out IntPtr error);
    [DllImport(Dll)] public static extern UIntPtr qncCsvTextLine(IntPtr csv);
    [DllImport(Dll)] public static extern int qncCsvTextCount(IntPtr csv);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextField(IntPtr csv, int index, out UIntPtr size);
    [DllImport(Dll)]
    public static extern int qncCsvTextFieldIndex(IntPtr csv, byte[] name, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncCsvTextWriteRow(IntPtr[] fields, UIntPtr count, byte delimiter,
        out IntPtr error);

    // --- Text in other encodings, files written whole ---
    [DllImport(Dll)] public static extern int qncFindEncoding(byte[] data, UIntPtr size);
    [DllImport(Dll)]
    public static extern IntPtr qncTextFromEncoding(byte[] data, UIntPtr size, int encoding,
        out UIntPtr textSize, out UIntPtr offset, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncTextToEncoding(byte[] text, UIntPtr size, int encoding,
        out UIntPtr dataSize, out UIntPtr offset, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncWriteFile(byte[] path, byte[] data, UIntPtr size,
        out IntPtr error);

    // --- HTTP in one call ---
    [DllImport(Dll)]
    public static extern IntPtr qncHttpSend(byte[] verb, byte[] url, byte[] headers, byte[] body,
        UIntPtr size, uint deadline, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncHttpGet(byte[] url, uint deadline, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncHttpDownload(byte[] url, byte[] path, uint deadline,
        out IntPtr error);
    [DllImport(Dll)] public static extern void qncHttpFree(IntPtr response);
    [DllImport(Dll)] public static extern int qncHttpStatus(IntPtr response);
    [DllImport(Dll)] public static extern IntPtr qncHttpBody(IntPtr response, out UIntPtr size);
    [DllImport(Dll)]
    public static extern IntPtr qncHttpHeader(IntPtr response, byte[] name, out IntPtr error);
    [DllImport(Dll)] public static extern int qncHttpHeaderCount(IntPtr response);
    [DllImport(Dll)] public static extern IntPtr qncHttpHeaderName(IntPtr response, int index);
    [DllImport(Dll)] public static extern IntPtr qncHttpHeaderValue(IntPtr response, int index);

    // --- HTTP calls with options (keep the delegate alive while it is set) ---
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate int QncHttpProgress(IntPtr context, ulong received, ulong total);
    [DllImport(Dll)]
    public static extern IntPtr qncHttpCallNew(byte[] verb, byte[] url, out IntPtr error);
    [DllImport(Dll)] public static extern void qncHttpCallFree(IntPtr call);
    [DllImport(Dll)]
    public static extern int qncHttpCallSetHeaders(IntPtr call, byte[] headers, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncHttpCallSetBody(IntPtr call, byte[] body, UIntPtr size,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncHttpCallSetUser(IntPtr call, byte[] user, byte[] password,
        out IntPtr error);
    [DllImport(Dll)]
    public static extern void qncHttpCallSetDeadline(IntPtr call, uint deadline);
    [DllImport(Dll)] public static extern void qncHttpCallSetLargest(IntPtr call, ulong size);
    [DllImport(Dll)]
    public static extern void qncHttpCallSetProgress(IntPtr call, QncHttpProgress progress,
        IntPtr context);
    [DllImport(Dll)] public static extern IntPtr qncHttpCallSend(IntPtr call, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncHttpCallDownload(IntPtr call, byte[] path, out IntPtr error);
    [DllImport(Dll)] public static extern void qncHttpCallCancel(IntPtr call);

    // --- Zones ---
    [DllImport(Dll)] public static extern int qncGaussZone(double longitude, int width);
    [DllImport(Dll)] public static extern double qncCentralMeridian(int zone, int width);
    [DllImport(Dll)]
    public static extern int qncBestZone(double west, double east, int width);
    [DllImport(Dll)] public static extern int qncUtmZone(double longitude, double latitude);
    [DllImport(Dll)] public static extern double qncPrefixEasting(int zone, double easting);
    [DllImport(Dll)]
    public static extern int qncSplitEasting(double prefixed, out int zone, out double easting,
        out int width);

    // --- Exact transverse Mercator, official systems, datum shifts ---
    [DllImport(Dll)] public static extern IntPtr qncGeographicFromEpsg(int code, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncTransverseMercatorFromEpsg(int code, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncTransverseMercatorNew(IntPtr geographic, double centralMeridian,
        double latitudeOfOrigin, double falseEasting, double falseNorthing, double scaleFactor,
        out IntPtr error);
    [DllImport(Dll)] public static extern void qncTransverseMercatorFree(IntPtr system);
    [DllImport(Dll)]
    public static extern int qncTransverseMercatorParameters(IntPtr system,
        out double centralMeridian, out double latitudeOfOrigin, out double falseEasting,
        out double falseNorthing, out double scaleFactor);
    [DllImport(Dll)]
    public static extern int qncTransverseMercatorForward(IntPtr system, double[] from, double[] to,
        UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncTransverseMercatorInverse(IntPtr system, double[] from, double[] to,
        UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncTransverseMercatorScale(IntPtr system, double[] from, double[] to,
        UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncShiftDatum(IntPtr fromSystem, IntPtr toSystem, double[] parameters,
        int convention, double[] from, double[] to, UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncShiftDatumBack(IntPtr fromSystem, IntPtr toSystem,
        double[] parameters, int convention, double[] from, double[] to, UIntPtr count);

    // --- Well-Known Text of other programs (borrowed texts: Marshal.PtrToStringUTF8) ---
    [DllImport(Dll)] public static extern IntPtr qncWktSystemRead(byte[] wkt, out IntPtr error);
    [DllImport(Dll)] public static extern void qncWktSystemFree(IntPtr system);
    [DllImport(Dll)] public static extern int qncWktSystemKind(IntPtr system);
    [DllImport(Dll)] public static extern IntPtr qncWktSystemName(IntPtr system);
    [DllImport(Dll)] public static extern IntPtr qncWktSystemDatum(IntPtr system);
    [DllImport(Dll)] public static extern double qncWktSystemUnit(IntPtr system);
    [DllImport(Dll)] public static extern int qncWktSystemIsNorthFirst(IntPtr system);
    [DllImport(Dll)] public static extern int qncWktSystemNotHonouredCount(IntPtr system);
    [DllImport(Dll)]
    public static extern IntPtr qncWktSystemNotHonoured(IntPtr system, int index);
    [DllImport(Dll)]
    public static extern IntPtr qncWktSystemGeographic(IntPtr system, out IntPtr error);
    [DllImport(Dll)]
    public static extern IntPtr qncWktSystemTransverseMercator(IntPtr system, out IntPtr error);

    // --- Similarities, estimation of parameters (null for what is not wanted) ---
    [DllImport(Dll)]
    public static extern int qncApplySimilarity(double[] parameters, double[] from, double[] to,
        UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncApplySimilarityBack(double[] parameters, double[] from, double[] to,
        UIntPtr count);
    [DllImport(Dll)]
    public static extern int qncEstimateSimilarity(double[] from, double[] to, UIntPtr count,
        double[] parameters, double[] residuals, out double standardDeviation, out IntPtr error);
    [DllImport(Dll)]
    public static extern int qncEstimateHelmert(double[] from, double[] to, UIntPtr count,
        int convention, double[] parameters, double[] residuals, out double standardDeviation,
        double[] parameterDeviations, out IntPtr error);

    // --- Height planes ---
    [DllImport(Dll)] public static extern double qncMeanRadius(IntPtr system, double latitude);
    [DllImport(Dll)]
    public static extern double qncCombinedScale(double pointScale, double height, double radius);
    [DllImport(Dll)]
    public static extern double qncDeformation(double pointScale, double height, double radius);
    [DllImport(Dll)]
    public static extern double qncCompensationHeight(double groundHeight, double offset,
        double radius);
    [DllImport(Dll)]
    public static extern double qncCompensatedOffset(double groundHeight, double planeHeight,
        double radius);
    [DllImport(Dll)]
    public static extern IntPtr qncGeographicRaised(IntPtr system, double height, double latitude,
        out IntPtr error);

    // --- Angles as text ---
    [DllImport(Dll)] public static extern int qncReadAngle(byte[] text, out double angle);
    [DllImport(Dll)]
    public static extern IntPtr qncWriteAngle(double angle, int decimals, byte[] degreeSign,
        out IntPtr error);
    [DllImport(Dll)] public static extern int qncFromPackedAngle(double packed, out double angle);
    [DllImport(Dll)] public static extern double qncToPackedAngle(double angle);
}

// A failure of the library: its code and its message.
public class QuarnException : Exception
{
    public int Code { get; }
    public QuarnException(int code, string message) : base(message) { Code = code; }
}

public static class Quarn
{
    // A text for an argument; null for null.
    public static byte[] Utf8(string text)
    {
        return text == null ? null : Encoding.UTF8.GetBytes(text + "\0");
    }

    // The text in a buffer of the library, which is released; null for none.
    public static string Take(IntPtr buffer)
    {
        if (buffer == IntPtr.Zero) return null;
        try
        {
            int length = 0;
            while (Marshal.ReadByte(buffer, length) != 0) ++length;
            byte[] bytes = new byte[length];
            Marshal.Copy(buffer, bytes, 0, length);
            return Encoding.UTF8.GetString(bytes);
        }
        finally
        {
            QuarnNative.qnFreeMem(buffer);
        }
    }

    // Throws what an error handle says and releases it; does nothing for none.
    public static void Check(IntPtr error)
    {
        if (error == IntPtr.Zero) return;
        int code = QuarnNative.qncErrorCode(error);
        string message = Take(QuarnNative.qncErrorMessage(error));
        QuarnNative.qnCloseHandle(error);
        throw new QuarnException(code, message);
    }
}
