// SPDX-License-Identifier: MIT
// Requests and responses of the HTTP client: CQNInternetFile, an open resource with optional read
// and write buffers, and CQNHttpFile, which adds sending and querying of HTTP requests.
//
// They are made by CQNInternetSession::OpenURL and CQNHttpConnection::OpenRequest and belong to the
// caller, who deletes them. Text is in the process ANSI code page; counts are in bytes.
//
// Errors: a CQNInternetException* with the platform's error code and the file's context, which the
// catcher deletes. Code 6 stands for a closed file, also one that was closed with its session or
// connection, and for reading or writing in the wrong mode,
// code 12017 for a file that a status callback closed during the call. Queries and options return
// the platform's result instead.
//
// Threads: one file is used by one thread at a time.
//
// Implemented in net: internet_file.cpp, file_read.cpp, file_lines.cpp, file_write.cpp,
// file_buffers.cpp, http_file.cpp and http_query.cpp.
//
// Example:
//   try {
//     CQNInternetSession session("MapClient");
//     CQNHttpFile* file = session.OpenURL("http://maps.example/tile.bin");
//     DWORD status = 0;
//     if (file != nullptr && file->QueryInfoStatusCode(status) != 0 && status == 200) {
//       char block[4096];
//       while (const unsigned int count = file->Read(block, sizeof(block))) {
//         std::fwrite(block, 1, count, stdout);
//       }
//     }
//     delete file;
//   } catch (CQNInternetException* error) {
//     delete error;
//   }
#ifndef QUARNFC_INTERNET_FILE_H_
#define QUARNFC_INTERNET_FILE_H_

#include <quarnfc/export.h>
#include <quarnfc/internet.h>
#include <quarnfc/platform_types.h>
#include <quarnfc/qn_string.h>

#include <cstddef>
#include <new>

// An open resource of the internet API, unbuffered in both directions until a buffer is set.
class QN_API CQNInternetFile {
 public:
  // Moves the read position; origin is 0 (start), 1 (current position) or 2 (end). Returns the new
  // position, deliberately sign-extended from 32 bits: 2 GiB and more come back as negative
  // numbers. Throws code 6 when the file is not readable or has a read buffer, 87 for another
  // origin and for an offset beyond 32 bits.
  virtual unsigned __int64 Seek(__int64 offset, unsigned int origin);

  // Reads up to count bytes into buffer, which has room for them, and returns how many; 0 at the
  // end of the data. Waits for the network. Fewer than count are no sign of the end.
  // Once the read buffer was made larger, deliberately, bytes of it that were never received may be
  // handed out as zeros: set its size before the first read.
  virtual unsigned int Read(void* buffer, unsigned int count);

  // Writes count bytes, or holds them when there is a write buffer with room for them: what is held
  // is written by a later Write that needs the room, by Flush, EndRequest or Close.
  virtual void Write(const void* buffer, unsigned int count);

  // Closes the file and forgets the object's name. Deliberately through Close, so that bytes held
  // for writing are flushed, which throws when the connection is dead. To drop them and the file:
  //
  //   try { file->Abort(); } catch (CQNInternetException* error) { delete error; }
  //   delete file;  // closes the handle whatever happens
  virtual void Abort();

  // Writes the bytes that the write buffer holds.
  virtual void Flush();

  // Flushes, closes the handle and releases both buffers. A second call does nothing. When Flush
  // throws, the file stays open.
  virtual void Close();

  // Bytes that the platform can hand out in one go; 0 when closed, at the end of the data, or on
  // failure. The platform is asked, and waits for the first bytes when none have arrived yet: the
  // call can block as long as Read would. Bytes in the read buffer do not count. Deliberately not
  // the content length, which QueryInfo tells.
  virtual unsigned __int64 GetLength() const;

  // Reads one line, without the line feed, and returns nonzero; 0 at the end of the data. Carriage
  // returns are dropped wherever they stand. A line above 64 MiB, dropped bytes counted, arrives in
  // pieces, so that a server that never ends its line cannot exhaust memory or hold the call. Takes
  // a read buffer of 4096 bytes when there is none.
  virtual int ReadString(CQNString& line);

  // Reads up to maximum - 1 bytes of one line into buffer, terminates them and returns buffer; null
  // at the end of the data, for a null buffer and for maximum 0. The line feed is kept, carriage
  // returns are dropped. A longer line goes on with the next call. Takes a read buffer as above.
  virtual char* ReadString(char* buffer, unsigned int maximum);

  // Writes a zero-terminated text without its terminator. Throws code 6 on a file opened for
  // reading.
  virtual void WriteString(const char* text);

  // Closes the file. What the write buffer holds is written; a failure to do so is lost here, so
  // call Flush or Close first to learn of it.
  virtual ~CQNInternetFile();

  // A file has one owner.
  CQNInternetFile(const CQNInternetFile&) = delete;
  CQNInternetFile& operator=(const CQNInternetFile&) = delete;

  // The file's handle; null when it is closed or could not be opened.
  operator HINTERNET() const;

  // The context of the file, the one its exceptions carry.
  unsigned __int64 GetContext() const;

  // Options of the file: the platform's numbers, buffers and results, 0 on failure.

  // Sets an option to the length bytes in buffer.
  int SetOption(DWORD option, void* buffer, DWORD length, DWORD flags);

  // Sets an option that takes a number, such as a timeout in milliseconds.
  int SetOption(DWORD option, DWORD value, DWORD flags = 0);

  // Reads an option into buffer, *length bytes; *length becomes what was written or is needed.
  int QueryOption(DWORD option, void* buffer, DWORD* length) const;

  // Reads an option that is a number; on failure value stays as it was.
  int QueryOption(DWORD option, DWORD& value) const;

  // Sets the size of the read buffer; 0 removes it with what it holds, 0xFFFFFFFF changes nothing.
  // Returns 0 and changes nothing when size is below the position of the next byte to hand out, or
  // when memory is exhausted.
  //
  // Deliberately, the tail of the old buffer from that position to its end is carried over, whether
  // or not it was ever filled (bytes never filled are zero), and a tail that does not fit into the
  // new buffer is dropped, bytes not yet handed out included. So set the size before the first
  // read, or when all that was read has been taken:
  //
  //   file->SetReadBufferSize(65536);  // right after SendRequest
  int SetReadBufferSize(unsigned int size);

  // Sets the size of the write buffer; 0 removes it. Bytes that would not fit are flushed first,
  // which may throw as Flush does; bytes that fit stay held.
  // Always nonzero; throws std::bad_alloc when memory is exhausted.
  int SetWriteBufferSize(unsigned int size);

  static void* operator new(std::size_t size);
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t, void* place) noexcept { return place; }
  static void operator delete(void* object) noexcept;
  static void operator delete(void* object, const std::nothrow_t&) noexcept;
  static void operator delete(void*, void*) noexcept {}

 protected:
  // readMode is 1 for reading, 0 for writing, -1 for both. The session handle is not kept, and the
  // handle is not registered for status callbacks.
  CQNInternetFile(HINTERNET file, HINTERNET session, const char* object, const char* server,
                  unsigned __int64 context, int readMode);

  // Takes context and server name from connection and registers the handle with its session.
  CQNInternetFile(HINTERNET file, const char* object, CQNInternetConnection* connection,
                  int readMode);

 private:
  friend class CQNHttpConnection;
  friend class CQNHttpFile;

  // A file without a handle; TakeHandle gives it one.
  CQNInternetFile(const char* object, const char* server, unsigned __int64 context, int readMode);
  void TakeHandle(HINTERNET file, HINTERNET parent, CQNInternetSession* session);

  unsigned int ReadHandle(void* buffer, unsigned int count);
  unsigned int WriteHandle(const void* data, unsigned int count);
  unsigned int TakeBuffered(void* target, unsigned int count);
  void RefillReadBuffer();
  unsigned int ReadLinePiece(char* target, unsigned int maximum, unsigned int& budget, bool& ended);
  bool PrepareLineReading();
  void ReplaceReadBuffer(unsigned int size);
  void ReplaceWriteBuffer(unsigned int size);
  void WriteHeldBytes(bool whole);
  void ReleaseBuffers();

  CQNString object_name_;
  HINTERNET handle_;
  int read_mode_;
  unsigned __int64 context_;
  HINTERNET connection_handle_;
  CQNString server_name_;
  unsigned int write_buffer_size_;
  unsigned int write_position_;
  unsigned char* write_buffer_;
  unsigned int read_buffer_size_;
  unsigned int read_position_;
  unsigned char* read_buffer_;
  unsigned int read_bytes_;
};

// An HTTP request and its response.
class QN_API CQNHttpFile : public CQNInternetFile {
 public:
  // Closes the request, as ~CQNInternetFile does.
  ~CQNHttpFile() override;

  // Adds headers of length bytes, or up to the terminator when length is -1 (a null text is empty).
  // Each header ends with CR LF. flags are those of HttpAddRequestHeadersA. Returns the platform's
  // result: 0 on failure.
  int AddRequestHeaders(const char* headers, DWORD flags, int length = -1);

  // The same with the whole string, which is not changed.
  int AddRequestHeaders(CQNString& headers, DWORD flags);

  // Sends the request with additional headers (headersLength bytes, or up to the terminator when
  // it is -1) and a body of optionalLength bytes, and receives the response's headers. Nonzero on
  // success; a failure throws. The body is read during the call only and stays the caller's.
  int SendRequest(const char* headers = nullptr, DWORD headersLength = 0xFFFFFFFF,
                  void* optional = nullptr, DWORD optionalLength = 0);

  // The same with the whole string as additional headers.
  int SendRequest(CQNString& headers, void* optional = nullptr, DWORD optionalLength = 0);

  // Sends the request's headers and announces a body of totalLength bytes, which follows through
  // Write; EndRequest finishes it. Afterwards the file can be written and read. Context 1 means the
  // file's. Nonzero on success; a failure throws.
  int SendRequestEx(DWORD totalLength, DWORD flags = 0, unsigned __int64 context = 1);

  // The same with the platform's own records, as HttpSendRequestExA takes them.
  int SendRequestEx(INTERNET_BUFFERSA* buffersIn, INTERNET_BUFFERSA* buffersOut, DWORD flags,
                    unsigned __int64 context);

  // Writes what the write buffer still holds, ends a request begun with SendRequestEx and receives
  // the response's headers. Nonzero on success; a failure throws. Write deliberately stays allowed
  // afterwards, although the platform takes the bytes for nobody's: the last Write comes before
  // EndRequest.
  //
  //   file->SendRequestEx(6);
  //   file->Write("abc", 3);
  //   file->Write("def", 3);  // the last one
  //   file->EndRequest();
  int EndRequest(DWORD flags = 0, INTERNET_BUFFERSA* buffers = nullptr,
                 unsigned __int64 context = 1);

  // Response headers: level and results are those of HttpQueryInfoA, 0 on failure. index selects
  // among headers of one name, is moved on to the next, and may be null.

  // The header as the platform writes it, into buffer of *length bytes.
  int QueryInfo(DWORD level, void* buffer, DWORD* length, DWORD* index) const;

  // The header as a number; on failure number stays as it was.
  int QueryInfo(DWORD level, DWORD& number, DWORD* index = nullptr) const;

  // The header as a point in time (UTC); on failure *time stays as it was.
  int QueryInfo(DWORD level, SYSTEMTIME* time, DWORD* index = nullptr) const;

  // The header as text. On failure the string is empty. Deliberately asks for the first header's
  // length without the index, so it fails when a later one is longer; the form with a buffer does
  // not:
  //
  //   char text[4096];
  //   for (DWORD index = 0, length = sizeof(text);
  //        file->QueryInfo(HTTP_QUERY_SET_COOKIE, text, &length, &index); length = sizeof(text))
  //        ...
  int QueryInfo(DWORD level, CQNString& text, DWORD* index = nullptr) const;

  // The status of the response, such as 200. Returns the platform's result; 0 leaves statusCode.
  int QueryInfoStatusCode(DWORD& statusCode) const;

  // The verb the request was made with; "GET" for a file of OpenURL.
  CQNString GetVerb() const;

  // "http://" with server and object, deliberately also for HTTPS and without the port; just
  // "http://" for a request that could not be opened. A host that needs the whole URL keeps the one
  // it opened, or asks for it:
  //
  //   char url[2084];
  //   DWORD length = sizeof(url);
  //   file->QueryOption(INTERNET_OPTION_URL, url, &length);  // option 34
  virtual CQNString GetFileURL() const;

 protected:
  CQNHttpFile(HINTERNET file, HINTERNET session, const char* object, const char* server,
              const char* verb, unsigned __int64 context);
  CQNHttpFile(HINTERNET file, const char* verb, const char* object, CQNHttpConnection* connection);

 private:
  friend class CQNInternetSession;
  friend class CQNHttpConnection;

  CQNString object_;
  CQNString verb_;
};

#endif  // QUARNFC_INTERNET_FILE_H_
