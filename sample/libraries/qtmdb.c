/* The library that reads the tables of accounts and permissions. */

/* The number of records that a table of tableBytes bytes holds; 0 for a record size of 0. */
__declspec(dllexport) unsigned long qtmdbRecordCount(unsigned long tableBytes,
                                                     unsigned long recordBytes)
{
    return recordBytes == 0 ? 0 : tableBytes / recordBytes;
}
