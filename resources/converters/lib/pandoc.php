<?php
// pandoc converts Textile and MediaWiki markup for us.

function vellox_pandoc_command(string $from): ?array
{
    $pandoc = '/usr/bin/pandoc';
    if (!is_executable($pandoc)) {
        fwrite(STDERR, "Vellox converter: $pandoc is missing (Debian package pandoc)\n");
        return null;
    }
    return [$pandoc, '--quiet', '-f', $from, '-t', 'html5', '--wrap=preserve'];
}

// Our standard error for a child. Handing over STDERR itself would move the shared position of
// a log file back to where it stood when PHP started, so the application's later lines would
// overwrite earlier ones; a stream opened now starts where the file stands now.
function vellox_stderr()
{
    return fopen('php://stderr', 'w') ?: STDERR;
}

// Runs pandoc as the filter itself: it reads our standard input and writes our standard
// output directly, so nothing is copied through PHP and neither side can block the other.
function vellox_pandoc_filter(string $from): int
{
    $command = vellox_pandoc_command($from);
    if ($command === null) {
        return 1;
    }
    $child = proc_open($command, [0 => STDIN, 1 => STDOUT, 2 => vellox_stderr()], $pipes);
    if (!is_resource($child)) {
        fwrite(STDERR, "Vellox converter: cannot start {$command[0]}\n");
        return 1;
    }
    return proc_close($child);
}

// Converts a text held in memory; $status receives pandoc's exit status. Input is fed while
// output is drained, since pandoc may start writing before it has read everything.
function vellox_pandoc_convert(string $from, string $source, int &$status): string
{
    $command = vellox_pandoc_command($from);
    if ($command === null) {
        $status = 1;
        return '';
    }
    $child = proc_open($command, [0 => ['pipe', 'r'], 1 => ['pipe', 'w'], 2 => vellox_stderr()],
                       $pipes);
    if (!is_resource($child)) {
        fwrite(STDERR, "Vellox converter: cannot start {$command[0]}\n");
        $status = 1;
        return '';
    }
    [$input, $output] = [$pipes[0], $pipes[1]];
    stream_set_blocking($input, false);
    stream_set_blocking($output, false);
    $html = '';
    $written = 0;
    $length = strlen($source);
    if ($length === 0) {
        fclose($input);
        $input = null;
    }
    while (true) {
        $read = [$output];
        $write = $input === null ? [] : [$input];
        $except = null;
        if (stream_select($read, $write, $except, null) === false) {
            break;
        }
        if ($write) {
            $count = fwrite($input, substr($source, $written, 65536));
            // A pandoc that stopped reading gets no more; what it wrote is still wanted.
            $written = $count === false ? $length : $written + $count;
            if ($written >= $length) {
                fclose($input);
                $input = null;
            }
        }
        if ($read) {
            $chunk = fread($output, 65536);
            if ($chunk === false || ($chunk === '' && feof($output))) {
                break;
            }
            $html .= $chunk;
        }
    }
    if ($input !== null) {
        fclose($input);
    }
    fclose($output);
    $status = proc_close($child);
    return $html;
}
