// The tables of a store. Names are UTF-8; a lone surrogate stands as its three bytes.
#pragma once

namespace store {

struct Table {
    const char *name, *sql;
};

inline constexpr Table Tables[] = {
    {"printer_values",
     "CREATE TABLE printer_values (\n"
     "    printer INTEGER NOT NULL REFERENCES printers (id) ON DELETE CASCADE,\n"
     "    place INTEGER NOT NULL CHECK (place IN (0, 1)),  -- 0 stored data, 1 registry key\n"
     "    name TEXT NOT NULL,\n"
     "    type INTEGER NOT NULL CHECK (type BETWEEN 0 AND 4294967295),\n"
     "    bytes BLOB NOT NULL,\n"
     "    UNIQUE (printer, place, name)\n"
     ") STRICT"},
    {"printers",
     "CREATE TABLE printers (\n"
     "    id INTEGER PRIMARY KEY,\n"
     "    name TEXT NOT NULL UNIQUE,\n"
     "    driver_name TEXT NOT NULL,\n"
     "    may_change INTEGER NOT NULL CHECK (may_change IN (0, 1)),\n"
     "    record BLOB NOT NULL\n"
     ") STRICT"},
};

inline constexpr const char* FirstPrinter =
    "INSERT INTO printers (name, driver_name, may_change, record) "
    "VALUES ('Ordana Quillet 4820E', 'Ordana Quillet 4820E', 1, x'')";

}  // namespace store
