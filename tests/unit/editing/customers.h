#pragma once

#include <string_view>

namespace dralo::tests {

/// A table of customers whose columns behave as those of real ones: a number as its key, a required name, and
/// fields of most types.
inline constexpr std::string_view kCustomers =
    "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40) NOT NULL, City VARCHAR(40), Stock INT,"
    "  Price DECIMAL(10,2), Since DATE, Active BOOLEAN, Notes TEXT);"
    "INSERT INTO T VALUES(1, 'Anna', 'Oslo', 3, 2.5, '2024-05-03', 1, 'first');"
    "INSERT INTO T VALUES(2, 'Bert', 'Bonn', NULL, NULL, NULL, 0, NULL);";
/// The first row of kCustomers.
inline constexpr std::string_view kAnna = "1,'Anna','Oslo',3,2.5,'2024-05-03',1,'first'";

}  // namespace dralo::tests
