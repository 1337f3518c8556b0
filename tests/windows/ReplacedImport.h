#pragma once

#include <cstddef>
#include <cstring>

#include <zelstandard/platform/WindowsFiles.h>

namespace support
{

/// Puts a function in the place of one that a DLL imports from the kernel, for the DLL alone and to
/// the end of the scope: so a test answers for the kernel what no file on the disk brings about.
class ReplacedImport
{
public:
    template <class Function> ReplacedImport(const char* dll, const char* name, Function function)
    {
        auto* const base = reinterpret_cast<std::byte*>(GetModuleHandleA(dll));
        const auto at = [base](auto offset) { return base + offset; };
        const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
        const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(at(dos->e_lfanew));
        const auto* import = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(
            at(header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress));
        for (; import->Name; ++import) {
            const auto* named =
                reinterpret_cast<const IMAGE_THUNK_DATA*>(at(import->OriginalFirstThunk));
            auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(at(import->FirstThunk));
            for (; named->u1.AddressOfData; ++named, ++entry) {
                const auto* const entryName =
                    reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(at(named->u1.AddressOfData));
                if (std::strcmp(reinterpret_cast<const char*>(entryName->Name), name) == 0)
                    entry_ = &entry->u1.Function;
            }
        }
        if (entry_)
            original_ = put(reinterpret_cast<ULONGLONG>(function));
    }
    ~ReplacedImport()
    {
        if (entry_)
            put(original_);
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;

    /// False when the DLL does not import that function.
    [[nodiscard]] bool isInPlace() const { return entry_ != nullptr; }

private:
    ULONGLONG put(ULONGLONG function) const
    {
        const ULONGLONG before = *entry_;
        DWORD protection = 0;
        VirtualProtect(entry_, sizeof *entry_, PAGE_READWRITE, &protection);
        *entry_ = function;
        VirtualProtect(entry_, sizeof *entry_, protection, &protection);
        return before;
    }

    ULONGLONG* entry_ = nullptr;
    ULONGLONG original_ = 0;
};

} // namespace support
