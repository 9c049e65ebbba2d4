// A file of JSON lines that grows while the module runs. A failure to write is kept for Check, since lines come
// from inside the module, which lets no exception through.
#pragma once

#include <fstream>
#include <string>

#include "host/json.h"

namespace host {

class JsonLines {
  public:
    // Made empty; Failure when it can't be. what names it in messages: "the trace".
    JsonLines(std::string what, const std::string& path);
    void Add(const Json& line);
    void Check();  // Failure when not all could be written

  private:
    [[noreturn]] void Fail(int error) const;

    std::string what_;
    std::ofstream stream_;
    int error_ = 0;
};

}  // namespace host
