<?php
// Runs pandoc as the filter itself: it reads our standard input and writes our standard
// output directly, so nothing is copied through PHP and neither side can block the other.

function vellox_pandoc_filter(string $from): int
{
    $pandoc = '/usr/bin/pandoc';
    if (!is_executable($pandoc)) {
        fwrite(STDERR, "Vellox converter: $pandoc is missing (Debian package pandoc)\n");
        return 1;
    }
    $command = [$pandoc, '--quiet', '-f', $from, '-t', 'html5', '--wrap=preserve'];
    $child = proc_open($command, [0 => STDIN, 1 => STDOUT, 2 => STDERR], $pipes);
    if (!is_resource($child)) {
        fwrite(STDERR, "Vellox converter: cannot start $pandoc\n");
        return 1;
    }
    return proc_close($child);
}
