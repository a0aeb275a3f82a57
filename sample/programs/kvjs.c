#include <stdio.h>

/* The one program that answers with a script instead of a page: the product's pages load it. */
int main(void)
{
    fputs("Content-Type: text/javascript\n\n"
          "/* kvjs: the script shared by the product's pages. */\n"
          "function kvGoTo(address) { window.location.href = address; }\n", stdout);
    return fflush(stdout) == 0 ? 0 : 1;
}
