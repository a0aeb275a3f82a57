/* The library that turns a request's body into form fields. */

/* The value of one hexadecimal digit of a "%xx" escape, or -1 for any other character. */
__declspec(dllexport) int QTnbwBHexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return -1;
}
