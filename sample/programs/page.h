/* The frame of every page that the sample product's CGI programs answer with. */
#ifndef SAMPLE_PAGE_H
#define SAMPLE_PAGE_H

#include <stdio.h>

/* Answers the request with one page that names the program and says what it does in the product.
   Both texts go into the page as they are, so they must be plain HTML text. Returns the program's
   exit code. Written with fputs alone: printf would triple the size of each program. */
static int answerPage(const char *program, const char *task) {
    const char *const parts[] = {
        "Content-Type: text/html\n\n"
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n"
        "<meta charset=\"us-ascii\">\n<title>Korvane - ",
        program,
        "</title>\n"
        "<link rel=\"icon\" href=\"/kv/favicon.ico\">\n</head>\n<body>\n"
        "<p><img src=\"/images/kv/kvimg/kvsite42x530.gif\" alt=\"Korvane\"></p>\n"
        "<h1>",
        program,
        "</h1>\n<p>",
        task,
        "</p>\n"
        "<p><a href=\"/kv/\">Back to the entry page</a></p>\n</body>\n</html>\n",
    };
    for (size_t i = 0; i < sizeof parts / sizeof parts[0]; ++i) {
        fputs(parts[i], stdout);
    }
    return fflush(stdout) == 0 && !ferror(stdout) ? 0 : 1;
}

#endif
