#include "platform/win32/system/Errors.h"

#include <gtest/gtest.h>

namespace kv {
namespace {

int numberOf(DWORD error) { return translate(error).number(); }

TEST(Win32Errors, EachHasItsNumber) {
    EXPECT_EQ(numberOf(2), 53);     // ERROR_FILE_NOT_FOUND
    EXPECT_EQ(numberOf(18), 53);    // ERROR_NO_MORE_FILES
    EXPECT_EQ(numberOf(3), 76);     // ERROR_PATH_NOT_FOUND
    EXPECT_EQ(numberOf(15), 76);    // ERROR_INVALID_DRIVE
    EXPECT_EQ(numberOf(267), 76);   // ERROR_DIRECTORY
    EXPECT_EQ(numberOf(32), 55);    // ERROR_SHARING_VIOLATION
    EXPECT_EQ(numberOf(33), 55);    // ERROR_LOCK_VIOLATION
    EXPECT_EQ(numberOf(1224), 55);  // ERROR_USER_MAPPED_FILE
    EXPECT_EQ(numberOf(5), 75);     // ERROR_ACCESS_DENIED
    EXPECT_EQ(numberOf(12), 75);    // ERROR_INVALID_ACCESS
    EXPECT_EQ(numberOf(16), 75);    // ERROR_CURRENT_DIRECTORY
    EXPECT_EQ(numberOf(80), 75);    // ERROR_FILE_EXISTS
    EXPECT_EQ(numberOf(82), 75);    // ERROR_CANNOT_MAKE
    EXPECT_EQ(numberOf(145), 75);   // ERROR_DIR_NOT_EMPTY
    EXPECT_EQ(numberOf(183), 75);   // ERROR_ALREADY_EXISTS
    EXPECT_EQ(numberOf(225), 75);   // ERROR_VIRUS_INFECTED
    EXPECT_EQ(numberOf(448), 75);   // ERROR_UNTRUSTED_MOUNT_POINT
    EXPECT_EQ(numberOf(1260), 75);  // ERROR_ACCESS_DISABLED_BY_POLICY
    EXPECT_EQ(numberOf(1314), 75);  // ERROR_PRIVILEGE_NOT_HELD
    EXPECT_EQ(numberOf(19), 70);    // ERROR_WRITE_PROTECT
    EXPECT_EQ(numberOf(65), 70);    // ERROR_NETWORK_ACCESS_DENIED
    EXPECT_EQ(numberOf(39), 61);    // ERROR_HANDLE_DISK_FULL
    EXPECT_EQ(numberOf(112), 61);   // ERROR_DISK_FULL
    EXPECT_EQ(numberOf(1295), 61);  // ERROR_DISK_QUOTA_EXCEEDED
    EXPECT_EQ(numberOf(6), 52);     // ERROR_INVALID_HANDLE
    EXPECT_EQ(numberOf(53), 52);    // ERROR_BAD_NETPATH
    EXPECT_EQ(numberOf(67), 52);    // ERROR_BAD_NET_NAME
    EXPECT_EQ(numberOf(111), 52);   // ERROR_BUFFER_OVERFLOW
    EXPECT_EQ(numberOf(123), 52);   // ERROR_INVALID_NAME
    EXPECT_EQ(numberOf(161), 52);   // ERROR_BAD_PATHNAME
    EXPECT_EQ(numberOf(206), 52);   // ERROR_FILENAME_EXCED_RANGE
    EXPECT_EQ(numberOf(1203), 52);  // ERROR_NO_NET_OR_BAD_PATH
    EXPECT_EQ(numberOf(21), 71);    // ERROR_NOT_READY
    EXPECT_EQ(numberOf(1112), 71);  // ERROR_NO_MEDIA_IN_DRIVE
    EXPECT_EQ(numberOf(4), 67);     // ERROR_TOO_MANY_OPEN_FILES
    EXPECT_EQ(numberOf(8), 7);      // ERROR_NOT_ENOUGH_MEMORY
    EXPECT_EQ(numberOf(14), 7);     // ERROR_OUTOFMEMORY
    EXPECT_EQ(numberOf(1450), 7);   // ERROR_NO_SYSTEM_RESOURCES
    EXPECT_EQ(numberOf(1455), 7);   // ERROR_COMMITMENT_LIMIT
    EXPECT_EQ(numberOf(20), 68);    // ERROR_BAD_UNIT
    EXPECT_EQ(numberOf(51), 68);    // ERROR_REM_NOT_LIST
    EXPECT_EQ(numberOf(55), 68);    // ERROR_DEV_NOT_EXIST
    EXPECT_EQ(numberOf(64), 68);    // ERROR_NETNAME_DELETED
    EXPECT_EQ(numberOf(1167), 68);  // ERROR_DEVICE_NOT_CONNECTED
}

TEST(Win32Errors, AnyOtherIsADeviceError) {
    EXPECT_EQ(numberOf(0), 57);      // ERROR_SUCCESS
    EXPECT_EQ(numberOf(23), 57);     // ERROR_CRC
    EXPECT_EQ(numberOf(31), 57);     // ERROR_GEN_FAILURE
    EXPECT_EQ(numberOf(1117), 57);   // ERROR_IO_DEVICE
    EXPECT_EQ(numberOf(99999), 57);  // none of Windows'
}

TEST(Win32Errors, TheLastErrorIsThrownTranslated) {
    try {
        SetLastError(ERROR_DISK_FULL);
        throwLastError();
        FAIL() << "nothing was thrown";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), 61);
        EXPECT_STREQ(failure.what(), "Disk full");
    }
}

}  // namespace
}  // namespace kv
