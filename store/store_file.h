// The file behind the store: told from other files before anything is written, made whole or not at all,
// checked for damage, and read and written in transactions.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/seams/stores.h"

namespace store {

inline constexpr std::uint32_t ApplicationId = 0x51443438;  // "QD48"
inline constexpr int SchemaVersion = 1;

class StoreFile {
  public:
    // Opens the store and makes it when there is none. StoreError when the file is refused or can't be had.
    StoreFile(const std::filesystem::path& path, int timeoutMs);

    bool ReadOnly() const { return !database_; }

    // Runs work(database), which reads with one statement, and gives what it gives.
    template <class Work>
    auto Read(Work work)
    {
        return Named([&] { return database_ ? work(*database_) : ReadLocked(work); });
    }

    // Runs work(database) as one transaction, begun as a writing one so that it never meets a newer state
    // half way.
    template <class Work>
    auto Write(Work work)
    {
        return Named([&] {
            if (!database_) throw platform::StoreError(name_ + " may only be read");
            SQLite::Transaction transaction(*database_, SQLite::TransactionBehavior::IMMEDIATE);
            auto result = work(*database_);
            transaction.commit();
            return result;
        });
    }

  private:
    // What tells whether a file that is read without locks has been written meanwhile.
    struct State {
        struct stat file {};
        bool hasLog = false;
        bool operator==(const State& other) const;
    };

    State CurrentState() const;
    void RefuseForeign() const;  // by the file's first bytes, without opening it as a database
    void Check();                // for damage, before anything is written
    std::unique_ptr<SQLite::Database> OpenForReading(const State& state) const;
    [[noreturn]] void Rethrow(const SQLite::Exception& error) const;

    // A file that may not be written can't be locked either: each call reads it as it is, and once more if
    // someone with more rights has written meanwhile.
    template <class Work>
    auto ReadLocked(Work& work)
    {
        for (int attempt = 0;; ++attempt) {
            const State before = CurrentState();
            const bool last = before.hasLog || attempt == 100;
            try {
                const auto database = OpenForReading(before);
                auto result = work(*database);
                if (last || before == CurrentState()) return result;
            } catch (const std::exception&) {
                if (last || before == CurrentState()) throw;
            }
        }
    }

    // Gives the database's failures the file's name.
    template <class Work>
    auto Named(Work work) const
    {
        try {
            return work();
        } catch (const SQLite::Exception& error) {
            Rethrow(error);
        }
    }

    std::string name_;            // as it was given, for messages
    std::filesystem::path path_;  // the file itself
    int timeoutMs_;
    std::unique_ptr<SQLite::Database> database_;  // null: the file may only be read
};

}  // namespace store
