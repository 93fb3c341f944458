# SPDX-License-Identifier: MIT
"""QuarnFC from Python: the flat C interface through ctypes, without anything to compile.

    from quarnfc import Library
    library = Library("libQuarnFC.so")        # or "QuarnFC.dll"
    for row in library.csv_rows("districts.csv"):
        ...

Texts are str. Failures are raised as QuarnError, with the code and the message of the library.
"""

import ctypes
import json

_TEXT = ctypes.c_char_p
_BUFFER = ctypes.c_void_p  # a text or buffer that qnFreeMem releases
_HANDLE = ctypes.c_void_p
_ERROR = ctypes.POINTER(ctypes.c_void_p)
_DOUBLES = ctypes.POINTER(ctypes.c_double)
_INT = ctypes.c_int
_SIZE = ctypes.c_size_t
_DOUBLE = ctypes.c_double
_INT_OUT = ctypes.POINTER(ctypes.c_int)
_SIZE_OUT = ctypes.POINTER(ctypes.c_size_t)
_PROGRESS = ctypes.CFUNCTYPE(_INT, ctypes.c_void_p, ctypes.c_ulonglong, ctypes.c_ulonglong)

# Result and arguments of every function, as in <quarnfc/c/...>.
FUNCTIONS = {
    "qncInterfaceVersion": (_INT, []),
    "qncErrorCode": (_INT, [_HANDLE]),
    "qncErrorMessage": (_BUFFER, [_HANDLE]),
    "qncUtf8FromAnsi": (_BUFFER, [_TEXT, _ERROR]),
    "qncAnsiFromUtf8": (_BUFFER, [_TEXT, _ERROR]),
    "qncIsUtf8": (_INT, [_TEXT, _SIZE, _SIZE_OUT]),
    "qncJsonParse": (_HANDLE, [_TEXT, _ERROR]),
    "qncJsonParseA": (_HANDLE, [_TEXT, _ERROR]),
    "qncJsonReadFile": (_HANDLE, [_TEXT, _ERROR]),
    "qncJsonSaveFile": (_INT, [_HANDLE, _TEXT, _INT, _ERROR]),
    "qncJsonLoadStrict": (_HANDLE, [_TEXT, _SIZE, _SIZE_OUT, _ERROR]),
    "qncJsonWriteStrict": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncJsonNewObject": (_HANDLE, [_ERROR]),
    "qncJsonNewArray": (_HANDLE, [_ERROR]),
    "qncJsonFree": (None, [_HANDLE]),
    "qncJsonWrite": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncJsonWriteA": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncJsonType": (_INT, [_HANDLE]),
    "qncJsonCount": (_INT, [_HANDLE]),
    "qncJsonAt": (_HANDLE, [_HANDLE, _INT]),
    "qncJsonKey": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncJsonFind": (_HANDLE, [_HANDLE, _TEXT]),
    "qncJsonFindValue": (_HANDLE, [_HANDLE, _TEXT]),
    "qncJsonText": (_BUFFER, [_HANDLE, _ERROR]),
    "qncJsonNumber": (_INT, [_HANDLE, _DOUBLES]),
    "qncJsonBool": (_INT, [_HANDLE, _INT_OUT]),
    "qncJsonSetText": (_INT, [_HANDLE, _TEXT, _TEXT, _ERROR]),
    "qncJsonSetNumber": (_INT, [_HANDLE, _TEXT, _DOUBLE, _ERROR]),
    "qncJsonSetBool": (_INT, [_HANDLE, _TEXT, _INT, _ERROR]),
    "qncJsonSetNull": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncJsonSetValue": (_INT, [_HANDLE, _TEXT, _HANDLE, _ERROR]),
    "qncJsonRemove": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncJsonAppendText": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncJsonAppendNumber": (_INT, [_HANDLE, _DOUBLE, _ERROR]),
    "qncJsonAppendBool": (_INT, [_HANDLE, _INT, _ERROR]),
    "qncJsonAppendValue": (_INT, [_HANDLE, _HANDLE, _ERROR]),
    "qncCsvOpen": (_HANDLE, [_TEXT, _ERROR]),
    "qncCsvClose": (None, [_HANDLE]),
    "qncCsvHeaderCount": (_INT, [_HANDLE]),
    "qncCsvHeader": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncCsvHeaderIndex": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncCsvNextRow": (_INT, [_HANDLE, _ERROR]),
    "qncCsvCount": (_INT, [_HANDLE]),
    "qncCsvText": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncCsvTextA": (_BUFFER, [_HANDLE, _INT, _ERROR]),
    "qncCsvRewind": (_INT, [_HANDLE, _ERROR]),
    "qncGeographicKnown": (_HANDLE, [_INT, _ERROR]),
    "qncGeographicNew": (_HANDLE, [_DOUBLE, _DOUBLE, _ERROR]),
    "qncGeographicFromWkt": (_HANDLE, [_TEXT, _ERROR]),
    "qncGeographicFree": (None, [_HANDLE]),
    "qncGeographicWkt": (_BUFFER, [_HANDLE, _ERROR]),
    "qncGeographicEllipsoid": (_INT, [_HANDLE, _DOUBLES, _DOUBLES]),
    "qncGeographicToEarthFixed": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncEarthFixedToGeographic": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncProjectedNew": (_HANDLE, [_HANDLE, _DOUBLE, _DOUBLE, _DOUBLE, _DOUBLE, _ERROR]),
    "qncProjectedFromWkt": (_HANDLE, [_TEXT, _ERROR]),
    "qncProjectedFromEpsg": (_HANDLE, [_INT, _ERROR]),
    "qncProjectedFromUtmZone": (_HANDLE, [_INT, _ERROR]),
    "qncProjectedFree": (None, [_HANDLE]),
    "qncProjectedWkt": (_BUFFER, [_HANDLE, _ERROR]),
    "qncProjectedGeographic": (_HANDLE, [_HANDLE, _ERROR]),
    "qncProjectedParameters": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES]),
    "qncProject": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncUnproject": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncProjectWebMercator": (_INT, [_DOUBLES, _DOUBLES, _SIZE]),
    "qncUnprojectWebMercator": (_INT, [_DOUBLES, _DOUBLES, _SIZE]),
    "qncBase64Encode": (_BUFFER, [_TEXT, _SIZE, _ERROR]),
    "qncBase32Encode": (_BUFFER, [_TEXT, _SIZE, _ERROR]),
    "qncBase64Decode": (_BUFFER, [_TEXT, _SIZE_OUT, _ERROR]),
    "qncBase32Decode": (_BUFFER, [_TEXT, _SIZE_OUT, _ERROR]),
    "qncMd5": (_BUFFER, [_TEXT, _SIZE, _ERROR]),
    "qncCrc64": (_BUFFER, [_TEXT, _SIZE, _ERROR]),
    "qncHmacSha256": (_INT, [_TEXT, _SIZE, _TEXT, _SIZE, ctypes.c_char_p, _ERROR]),
    "qncDigestNew": (_HANDLE, [_INT, _TEXT, _SIZE, _ERROR]),
    "qncDigestFree": (None, [_HANDLE]),
    "qncDigestUpdate": (None, [_HANDLE, _TEXT, _SIZE]),
    "qncDigestFinish": (_BUFFER, [_HANDLE, _ERROR]),
    "qncJsonTextParse": (_HANDLE, [_TEXT, _SIZE, _SIZE_OUT, _ERROR]),
    "qncJsonTextFree": (None, [_HANDLE]),
    "qncJsonTextWrite": (_BUFFER, [_HANDLE, _ERROR]),
    "qncJsonTextType": (_INT, [_HANDLE, _TEXT]),
    "qncJsonTextCount": (_INT, [_HANDLE, _TEXT]),
    "qncJsonTextSource": (_BUFFER, [_HANDLE, _TEXT, _ERROR]),
    "qncJsonTextString": (_BUFFER, [_HANDLE, _TEXT, _SIZE_OUT, _ERROR]),
    "qncJsonTextNumber": (_INT, [_HANDLE, _TEXT, _DOUBLES]),
    "qncJsonTextReplace": (_INT, [_HANDLE, _TEXT, _TEXT, _ERROR]),
    "qncJsonTextAdd": (_INT, [_HANDLE, _TEXT, _TEXT, _ERROR]),
    "qncJsonTextRemove": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncCsvTextOpen": (_HANDLE, [_TEXT, ctypes.c_char, _ERROR]),
    "qncCsvTextOpenEncoded": (_HANDLE, [_TEXT, ctypes.c_char, _INT, _ERROR]),
    "qncCsvTextFromMemory": (_HANDLE, [_TEXT, _SIZE, ctypes.c_char, _ERROR]),
    "qncCsvTextClose": (None, [_HANDLE]),
    "qncCsvTextNextRow": (_INT, [_HANDLE, _ERROR]),
    "qncCsvTextLine": (_SIZE, [_HANDLE]),
    "qncCsvTextCount": (_INT, [_HANDLE]),
    "qncCsvTextField": (_TEXT, [_HANDLE, _INT, _SIZE_OUT]),
    "qncCsvTextFieldIndex": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncCsvTextWriteRow": (_BUFFER, [ctypes.POINTER(_TEXT), _SIZE, ctypes.c_char, _ERROR]),
    "qncFindEncoding": (_INT, [_TEXT, _SIZE]),
    "qncTextFromEncoding": (_BUFFER, [_TEXT, _SIZE, _INT, _SIZE_OUT, _SIZE_OUT, _ERROR]),
    "qncTextToEncoding": (_BUFFER, [_TEXT, _SIZE, _INT, _SIZE_OUT, _SIZE_OUT, _ERROR]),
    "qncWriteFile": (_INT, [_TEXT, _TEXT, _SIZE, _ERROR]),
    "qncHttpSend": (
        _HANDLE, [_TEXT, _TEXT, _TEXT, _TEXT, _SIZE, ctypes.c_uint, _ERROR]),
    "qncHttpGet": (_HANDLE, [_TEXT, ctypes.c_uint, _ERROR]),
    "qncHttpDownload": (_HANDLE, [_TEXT, _TEXT, ctypes.c_uint, _ERROR]),
    "qncHttpFree": (None, [_HANDLE]),
    "qncHttpStatus": (_INT, [_HANDLE]),
    "qncHttpBody": (_BUFFER, [_HANDLE, _SIZE_OUT]),
    "qncHttpHeader": (_BUFFER, [_HANDLE, _TEXT, _ERROR]),
    "qncHttpHeaderCount": (_INT, [_HANDLE]),
    "qncHttpHeaderName": (_TEXT, [_HANDLE, _INT]),
    "qncHttpHeaderValue": (_TEXT, [_HANDLE, _INT]),
    "qncHttpCallNew": (_HANDLE, [_TEXT, _TEXT, _ERROR]),
    "qncHttpCallFree": (None, [_HANDLE]),
    "qncHttpCallSetHeaders": (_INT, [_HANDLE, _TEXT, _ERROR]),
    "qncHttpCallSetBody": (_INT, [_HANDLE, _TEXT, _SIZE, _ERROR]),
    "qncHttpCallSetUser": (_INT, [_HANDLE, _TEXT, _TEXT, _ERROR]),
    "qncHttpCallSetDeadline": (None, [_HANDLE, ctypes.c_uint]),
    "qncHttpCallSetLargest": (None, [_HANDLE, ctypes.c_ulonglong]),
    "qncHttpCallSetProgress": (None, [_HANDLE, _PROGRESS, ctypes.c_void_p]),
    "qncHttpCallSend": (_HANDLE, [_HANDLE, _ERROR]),
    "qncHttpCallDownload": (_HANDLE, [_HANDLE, _TEXT, _ERROR]),
    "qncHttpCallCancel": (None, [_HANDLE]),
    "qncGaussZone": (_INT, [_DOUBLE, _INT]),
    "qncCentralMeridian": (_DOUBLE, [_INT, _INT]),
    "qncBestZone": (_INT, [_DOUBLE, _DOUBLE, _INT]),
    "qncUtmZone": (_INT, [_DOUBLE, _DOUBLE]),
    "qncPrefixEasting": (_DOUBLE, [_INT, _DOUBLE]),
    "qncSplitEasting": (_INT, [_DOUBLE, _INT_OUT, _DOUBLES, _INT_OUT]),
    "qncGeographicFromEpsg": (_HANDLE, [_INT, _ERROR]),
    "qncTransverseMercatorFromEpsg": (_HANDLE, [_INT, _ERROR]),
    "qncTransverseMercatorNew": (
        _HANDLE, [_HANDLE, _DOUBLE, _DOUBLE, _DOUBLE, _DOUBLE, _DOUBLE, _ERROR]),
    "qncTransverseMercatorFree": (None, [_HANDLE]),
    "qncTransverseMercatorParameters": (
        _INT, [_HANDLE, _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES]),
    "qncTransverseMercatorForward": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncTransverseMercatorInverse": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncTransverseMercatorScale": (_INT, [_HANDLE, _DOUBLES, _DOUBLES, _SIZE]),
    "qncShiftDatum": (_INT, [_HANDLE, _HANDLE, _DOUBLES, _INT, _DOUBLES, _DOUBLES, _SIZE]),
    "qncShiftDatumBack": (_INT, [_HANDLE, _HANDLE, _DOUBLES, _INT, _DOUBLES, _DOUBLES, _SIZE]),
    "qncWktSystemRead": (_HANDLE, [_TEXT, _ERROR]),
    "qncWktSystemFree": (None, [_HANDLE]),
    "qncWktSystemKind": (_INT, [_HANDLE]),
    "qncWktSystemName": (_TEXT, [_HANDLE]),
    "qncWktSystemDatum": (_TEXT, [_HANDLE]),
    "qncWktSystemUnit": (_DOUBLE, [_HANDLE]),
    "qncWktSystemIsNorthFirst": (_INT, [_HANDLE]),
    "qncWktSystemNotHonouredCount": (_INT, [_HANDLE]),
    "qncWktSystemNotHonoured": (_TEXT, [_HANDLE, _INT]),
    "qncWktSystemGeographic": (_HANDLE, [_HANDLE, _ERROR]),
    "qncWktSystemTransverseMercator": (_HANDLE, [_HANDLE, _ERROR]),
    "qncApplySimilarity": (_INT, [_DOUBLES, _DOUBLES, _DOUBLES, _SIZE]),
    "qncApplySimilarityBack": (_INT, [_DOUBLES, _DOUBLES, _DOUBLES, _SIZE]),
    "qncEstimateSimilarity": (
        _INT, [_DOUBLES, _DOUBLES, _SIZE, _DOUBLES, _DOUBLES, _DOUBLES, _ERROR]),
    "qncEstimateHelmert": (
        _INT, [_DOUBLES, _DOUBLES, _SIZE, _INT, _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES, _ERROR]),
    "qncMeanRadius": (_DOUBLE, [_HANDLE, _DOUBLE]),
    "qncCombinedScale": (_DOUBLE, [_DOUBLE, _DOUBLE, _DOUBLE]),
    "qncDeformation": (_DOUBLE, [_DOUBLE, _DOUBLE, _DOUBLE]),
    "qncCompensationHeight": (_DOUBLE, [_DOUBLE, _DOUBLE, _DOUBLE]),
    "qncCompensatedOffset": (_DOUBLE, [_DOUBLE, _DOUBLE, _DOUBLE]),
    "qncGeographicRaised": (_HANDLE, [_HANDLE, _DOUBLE, _DOUBLE, _ERROR]),
    "qncReadAngle": (_INT, [_TEXT, _DOUBLES]),
    "qncWriteAngle": (_BUFFER, [_DOUBLE, _INT, _TEXT, _ERROR]),
    "qncFromPackedAngle": (_INT, [_DOUBLE, _DOUBLES]),
    "qncToPackedAngle": (_DOUBLE, [_DOUBLE]),
}


class QuarnError(Exception):
    """A failure of the library: its code and its message."""

    def __init__(self, code, message):
        super().__init__(f"{message} ({code})")
        self.code = code
        self.message = message


class Library:
    """The library at a path. Functions of the interface are its attributes."""

    def __init__(self, path):
        self._module = ctypes.CDLL(path)
        for name, (result, arguments) in FUNCTIONS.items():
            function = getattr(self._module, name)
            function.restype, function.argtypes = result, arguments
        self._module.qnFreeMem.restype, self._module.qnFreeMem.argtypes = None, [_HANDLE]
        self._module.qnCloseHandle.restype, self._module.qnCloseHandle.argtypes = None, [_HANDLE]

    def __getattr__(self, name):
        return getattr(self._module, name)

    def text(self, buffer):
        """The text in a buffer of the library, which is released; None for none."""
        if not buffer:
            return None
        try:
            return ctypes.string_at(buffer).decode("utf-8")
        finally:
            self._module.qnFreeMem(buffer)

    def call(self, name, *arguments):
        """Calls a function whose last argument is the error; raises QuarnError for one."""
        error = ctypes.c_void_p()
        result = getattr(self._module, name)(*arguments, ctypes.byref(error))
        if error.value is None:
            return result
        code = self._module.qncErrorCode(error)
        message = self.text(self._module.qncErrorMessage(error))
        self._module.qnCloseHandle(error)
        raise QuarnError(code, message)

    def csv_rows(self, path):
        """The rows of a CSV file, each a dictionary of texts by the names of the header."""
        csv = self.call("qncCsvOpen", path.encode("utf-8"))
        try:
            count = self._module.qncCsvHeaderCount(csv)
            names = [self.text(self.call("qncCsvHeader", csv, i)) for i in range(count)]
            while self.call("qncCsvNextRow", csv) == 1:
                width = self._module.qncCsvCount(csv)
                fields = [self.text(self.call("qncCsvText", csv, i)) for i in range(width)]
                yield dict(zip(names, fields))
        finally:
            self._module.qncCsvClose(csv)

    def json(self, text):
        """What a JSON text holds, as Python values."""
        document = self.call("qncJsonParse", text.encode("utf-8"))
        try:
            return json.loads(self.text(self.call("qncJsonWrite", document, 0)) or "null")
        finally:
            self._module.qncJsonFree(document)

    def project(self, epsg_code, points, inverse=False):
        """Pairs of longitude and latitude as pairs of easting and northing, or back."""
        system = self.call("qncProjectedFromEpsg", epsg_code)
        try:
            flat = (ctypes.c_double * (2 * len(points)))(*(x for point in points for x in point))
            convert = self._module.qncUnproject if inverse else self._module.qncProject
            convert(system, flat, flat, len(points))
            return list(zip(flat[0::2], flat[1::2]))
        finally:
            self._module.qncProjectedFree(system)

    def md5(self, data):
        return self.text(self.call("qncMd5", data, len(data)))

    def digest(self, kind, pieces, key=b""):
        """The digest of a message in pieces, as hexadecimal digits; kind is a QNC_DIGEST_..."""
        digest = self.call("qncDigestNew", kind, key, len(key))
        try:
            for piece in pieces:
                self._module.qncDigestUpdate(digest, piece, len(piece))
            return self.text(self.call("qncDigestFinish", digest))
        finally:
            self._module.qncDigestFree(digest)

    def get(self, url, deadline=0):
        """Status and body of a resource; deadline in milliseconds, 0 for none."""
        response = self.call("qncHttpGet", url.encode("utf-8"), deadline)
        try:
            size = ctypes.c_size_t()
            body = self._module.qncHttpBody(response, ctypes.byref(size))
            return self._module.qncHttpStatus(response), ctypes.string_at(body, size.value)
        finally:
            self._module.qncHttpFree(response)
