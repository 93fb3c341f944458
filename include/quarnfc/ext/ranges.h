// SPDX-License-Identifier: MIT
// Range-for over what the library's classes hold.
//
//   Members(object)     the members of a CMyJsonObj: .key, .value
//   Elements(value)     the elements of an array value: CMyJsonValue*; none unless it is an array
//   Items(collection)   the items of a CQNCollection: unsigned __int64
//   Texts(collection)   the texts of a CQNStringCollection: char*, which may be null
//   Objects(collection) the objects of a CQNObjectCollection: CQNObject*, which may be null
//   Rows(reader)        the rows of a CQNCSVFileReader that are still to come
//
// What is given out is borrowed and stays where it was: it belongs to the object, collection or
// value. Do not add or remove while a loop runs. Rows ends at the end of the file and on an error:
// afterwards the reader's GetLastError tells which. Header-only, C++17; the thread rules are those
// of the class.
//
// Example:
//   CMyJsonObj station;
//   station.Load("{\"lon\":112.5,\"lat\":28.25,\"name\":\"a\"}");
//   double sum = 0;
//   for (const auto& member : quarnfc::ext::Members(station)) {
//     if (member.value->IsNumber()) sum += member.value->ValueNumber();
//   }
//   sum;    // == 140.75
#ifndef QUARNFC_EXT_RANGES_H_
#define QUARNFC_EXT_RANGES_H_

#include <quarnfc/collection.h>
#include <quarnfc/csv.h>
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/object_collection.h>
#include <quarnfc/string_collection.h>

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// The indexes 0 to Count() - 1 of a source as a range of what Access::Get gives for each.
template <class Source, class Access>
class IndexedRange {
 public:
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = decltype(Access::Get(std::declval<const Source&>(), 0));
    using difference_type = std::ptrdiff_t;
    using pointer = const value_type*;
    using reference = value_type;

    Iterator(const Source& source, int index) : source_(&source), index_(index) {}
    reference operator*() const { return Access::Get(*source_, index_); }
    Iterator& operator++() {
      ++index_;
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++index_;
      return before;
    }
    bool operator==(const Iterator& other) const { return index_ == other.index_; }
    bool operator!=(const Iterator& other) const { return index_ != other.index_; }

   private:
    const Source* source_;
    int index_;
  };

  explicit IndexedRange(const Source& source) : source_(&source) {}
  Iterator begin() const { return Iterator(*source_, 0); }
  Iterator end() const { return Iterator(*source_, Access::Count(*source_)); }

 private:
  const Source* source_;
};

// A member of an object: its key and its value, which stays the object's.
struct JsonMember {
  CQNString key;
  CMyJsonValue* value = nullptr;
};

namespace detail {

struct MemberAccess {
  static int Count(const CMyJsonObj& object) { return object.ValueCount(); }
  static JsonMember Get(const CMyJsonObj& object, int index) {
    JsonMember member;
    object.Item(index, member.key, member.value);
    return member;
  }
};

struct ElementAccess {
  static int Count(const CMyJsonValue& value) { return value.ValueArrLength(); }
  static CMyJsonValue* Get(const CMyJsonValue& value, int index) {
    return value.ValueArrItem(index);
  }
};

struct ItemAccess {
  static int Count(const CQNCollection& collection) { return collection.Count(); }
  static unsigned __int64 Get(const CQNCollection& collection, int index) {
    return collection.Item(index);
  }
};

struct TextAccess {
  static int Count(const CQNStringCollection& collection) { return collection.Count(); }
  static char* Get(const CQNStringCollection& collection, int index) {
    return collection.GetStr(index);
  }
};

struct ObjectAccess {
  static int Count(const CQNObjectCollection& collection) { return collection.Count(); }
  static CQNObject* Get(const CQNObjectCollection& collection, int index) {
    return collection.GetObj(index);
  }
};

}  // namespace detail

inline IndexedRange<CMyJsonObj, detail::MemberAccess> Members(const CMyJsonObj& object) {
  return IndexedRange<CMyJsonObj, detail::MemberAccess>(object);
}

inline IndexedRange<CMyJsonValue, detail::ElementAccess> Elements(const CMyJsonValue& value) {
  return IndexedRange<CMyJsonValue, detail::ElementAccess>(value);
}

inline IndexedRange<CQNCollection, detail::ItemAccess> Items(const CQNCollection& collection) {
  return IndexedRange<CQNCollection, detail::ItemAccess>(collection);
}

inline IndexedRange<CQNStringCollection, detail::TextAccess> Texts(
    const CQNStringCollection& collection) {
  return IndexedRange<CQNStringCollection, detail::TextAccess>(collection);
}

inline IndexedRange<CQNObjectCollection, detail::ObjectAccess> Objects(
    const CQNObjectCollection& collection) {
  return IndexedRange<CQNObjectCollection, detail::ObjectAccess>(collection);
}

// A borrowed object or value as an argument would be gone before the loop starts.
void Members(const CMyJsonObj&&) = delete;
void Elements(const CMyJsonValue&&) = delete;

// The rows of a reader from where it stands. A range for one loop: each step reads the next row.
class CsvRowRange {
 public:
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = std::vector<CQNString>;
    using difference_type = std::ptrdiff_t;
    using pointer = const value_type*;
    using reference = const value_type&;

    explicit Iterator(CsvRowRange* range) : range_(range) {}
    reference operator*() const { return range_->row_; }
    pointer operator->() const { return &range_->row_; }
    Iterator& operator++() {
      range_ = range_->Advance();
      return *this;
    }
    bool operator==(const Iterator& other) const { return range_ == other.range_; }
    bool operator!=(const Iterator& other) const { return range_ != other.range_; }

   private:
    CsvRowRange* range_;  // null at the end
  };

  explicit CsvRowRange(CQNCSVFileReader& reader) : reader_(&reader) {}
  Iterator begin() { return Iterator(Advance()); }
  Iterator end() { return Iterator(nullptr); }

 private:
  CsvRowRange* Advance() { return reader_->NextRow(row_) ? this : nullptr; }

  CQNCSVFileReader* reader_;
  std::vector<CQNString> row_;
};

inline CsvRowRange Rows(CQNCSVFileReader& reader) { return CsvRowRange(reader); }

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_RANGES_H_
