<?php
// BBCode to a clean XHTML body fragment. Tags: b, i, u, s, url, img, quote, list (with [*]
// items), code, color, size. Anything that is not a well-formed use of a known tag stays in the
// text as written, so a stray bracket never swallows a word.

final class BBNode
{
    public array $children = [];
    public bool $closed = false;

    public function __construct(public string $tag = '', public ?string $argument = null,
                                public string $source = '')
    {
    }
}

final class BBCodeConverter
{
    private const INLINE = ['b', 'i', 'u', 's', 'url', 'color', 'size'];
    private const BLOCK = ['quote', 'list'];
    private const NAMED_SIZES = [1 => 'x-small', 2 => 'small', 3 => 'medium', 4 => 'large',
                                 5 => 'x-large', 6 => 'xx-large', 7 => '300%'];

    public function convert(string $text): string
    {
        $text = str_replace(["\r\n", "\r"], "\n", $text);
        return $this->renderFlow($this->parse($text)->children, true);
    }

    // ----- parsing into a tree -----

    private function parse(string $text): BBNode
    {
        $root = new BBNode();
        $root->closed = true;
        $stack = [$root];
        // Close tags of inline elements ended early by a block; they are expected later.
        $pendingCloses = [];
        $pattern = '/\[(\/?)(\*|[a-z]+)(?:=([^\]\n]*))?\]/i';
        $offset = 0;
        while (preg_match($pattern, $text, $match, PREG_OFFSET_CAPTURE, $offset)) {
            $start = $match[0][1];
            $token = $match[0][0];
            $this->appendText(end($stack), substr($text, $offset, $start - $offset));
            $offset = $start + strlen($token);
            $isClose = $match[1][0] === '/';
            $tag = strtolower($match[2][0]);
            $argument = isset($match[3]) && $match[3][1] >= 0 ? $match[3][0] : null;

            if ($tag === 'code' && !$isClose) {
                $end = stripos($text, '[/code]', $offset);
                if ($end === false) {
                    $this->appendText(end($stack), $token);
                    continue;
                }
                $this->closeInline($stack, $pendingCloses);
                $node = new BBNode('code', null, $token);
                $node->children[] = substr($text, $offset, $end - $offset);
                $node->closed = true;
                end($stack)->children[] = $node;
                $offset = $end + strlen('[/code]');
                continue;
            }
            if ($tag === 'img' && !$isClose) {
                $end = stripos($text, '[/img]', $offset);
                $path = $end === false ? '' : trim(substr($text, $offset, $end - $offset));
                if ($path === '' || strpbrk($path, "\n<>\"") !== false) {
                    $this->appendText(end($stack), $token);
                    continue;
                }
                $node = new BBNode('img', $argument, $token);
                $node->children[] = $path;
                $node->closed = true;
                end($stack)->children[] = $node;
                $offset = $end + strlen('[/img]');
                continue;
            }
            if ($tag === '*') {
                $list = $this->innermostList($stack);
                if ($list === null || $isClose) {
                    $this->appendText(end($stack), $token);
                    continue;
                }
                while (end($stack) !== $list) {
                    $this->closeTop($stack);
                }
                $item = new BBNode('*', null, $token);
                $item->closed = true;
                $list->children[] = $item;
                $stack[] = $item;
                continue;
            }
            $known = in_array($tag, self::INLINE, true) || in_array($tag, self::BLOCK, true);
            if (!$known) {
                $this->appendText(end($stack), $token);
                continue;
            }
            if ($isClose) {
                if (!$this->closeTag($stack, $tag, $pendingCloses)) {
                    $this->appendText(end($stack), $token);
                }
                continue;
            }
            if (!$this->argumentIsValid($tag, $argument)) {
                $this->appendText(end($stack), $token);
                continue;
            }
            if (in_array($tag, self::BLOCK, true)) {
                $this->closeInline($stack, $pendingCloses);
            }
            $node = new BBNode($tag, $argument, $token);
            end($stack)->children[] = $node;
            $stack[] = $node;
        }
        $this->appendText(end($stack), substr($text, $offset));
        // A quote or list left open runs to the end of the text; an inline tag left open was
        // never markup and stays as written.
        for ($i = count($stack) - 1; $i > 0; --$i) {
            $node = $stack[$i];
            if ($this->isBlock($node) || $node->tag === '*') {
                $node->closed = true;
                continue;
            }
            $parent = $stack[$i - 1];
            array_pop($parent->children);
            $this->appendText($parent, $node->source);
            foreach ($node->children as $child) {
                is_string($child) ? $this->appendText($parent, $child) : $parent->children[] = $child;
            }
        }
        return $root;
    }

    private function appendText(BBNode $node, string $text): void
    {
        if ($text === '') {
            return;
        }
        $last = count($node->children) - 1;
        if ($last >= 0 && is_string($node->children[$last])) {
            $node->children[$last] .= $text;
        } else {
            $node->children[] = $text;
        }
    }

    private function innermostList(array $stack): ?BBNode
    {
        for ($i = count($stack) - 1; $i > 0; --$i) {
            if ($stack[$i]->tag === 'list') {
                return $stack[$i];
            }
            if ($stack[$i]->tag === 'quote') {
                return null;
            }
        }
        return null;
    }

    // Blocks may not sit inside inline elements: end the open inline ones here.
    private function closeInline(array &$stack, array &$pendingCloses): void
    {
        while (in_array(end($stack)->tag, self::INLINE, true)) {
            $pendingCloses[] = end($stack)->tag;
            $this->closeTop($stack);
        }
    }

    private function closeTop(array &$stack): void
    {
        $node = array_pop($stack);
        $node->closed = true;
    }

    private function closeTag(array &$stack, string $tag, array &$pendingCloses): bool
    {
        for ($i = count($stack) - 1; $i > 0; --$i) {
            if ($stack[$i]->tag === $tag) {
                // Elements opened inside and never closed end with this one.
                while (count($stack) > $i) {
                    $this->closeTop($stack);
                }
                return true;
            }
            // An inline close tag cannot reach past the block it is written in.
            if (in_array($stack[$i]->tag, self::BLOCK, true) || $stack[$i]->tag === '*') {
                if (!in_array($tag, self::BLOCK, true)) {
                    break;
                }
            }
        }
        $pending = array_search($tag, $pendingCloses, true);
        if ($pending !== false) {
            array_splice($pendingCloses, $pending, 1);
            return true;
        }
        return false;
    }

    private function argumentIsValid(string $tag, ?string $argument): bool
    {
        switch ($tag) {
        case 'color':
            return $argument !== null
                && preg_match('/^(#[0-9a-f]{3}|#[0-9a-f]{6}|[a-z]{3,20})$/i', trim($argument));
        case 'size':
            return $argument !== null && $this->fontSize($argument) !== null;
        case 'list':
            return $argument === null || preg_match('/^[1aAiI]$/', trim($argument));
        case 'url':
            return $argument === null || ($argument !== '' && $this->safeUrl($argument));
        default:
            return $argument === null || $tag === 'quote';
        }
    }

    private function fontSize(string $argument): ?string
    {
        $argument = trim($argument);
        if (preg_match('/^[1-7]$/', $argument)) {
            return self::NAMED_SIZES[(int)$argument];
        }
        if (preg_match('/^(\d{1,3})(px|pt|em|%)?$/', $argument, $m)) {
            $value = (int)$m[1];
            $unit = $m[2] ?? '';
            if ($unit === '' || $unit === '%') {
                return ($value >= 10 && $value <= 400) ? $value . '%' : null;
            }
            return ($value > 0 && $value <= 200) ? $value . $unit : null;
        }
        return null;
    }

    private function safeUrl(string $url): bool
    {
        return !preg_match('/^\s*(javascript|vbscript|data):/i', $url);
    }

    // ----- rendering -----

    private function escape(string $text): string
    {
        return htmlspecialchars($text, ENT_QUOTES | ENT_XHTML | ENT_SUBSTITUTE, 'UTF-8');
    }

    // Block content: paragraphs split at blank lines, blocks between them. $paragraphs false
    // renders the runs inline (list items).
    private function renderFlow(array $children, bool $paragraphs): string
    {
        $html = '';
        $run = [];
        $flush = function () use (&$run, &$html, $paragraphs) {
            $html .= $this->renderRun($run, $paragraphs);
            $run = [];
        };
        foreach ($children as $child) {
            if ($child instanceof BBNode && $child->closed && $this->isBlock($child)) {
                $flush();
                $html .= $this->renderBlock($child);
            } elseif (is_string($child) && $paragraphs && str_contains($child, "\n\n")) {
                $parts = preg_split('/\n[ \t]*\n\s*/', $child);
                foreach ($parts as $index => $part) {
                    if ($index > 0) {
                        $flush();
                    }
                    if ($part !== '') {
                        $run[] = $part;
                    }
                }
            } else {
                $run[] = $child;
            }
        }
        $flush();
        return $html;
    }

    private function isBlock(BBNode $node): bool
    {
        return in_array($node->tag, ['quote', 'list', 'code'], true);
    }

    private function renderRun(array $run, bool $paragraph): string
    {
        // Line breaks that only separate markup from a neighbouring block are not content.
        if ($run !== [] && is_string($run[0])) {
            $run[0] = preg_replace('/^[ \t]*\n/', '', $run[0]);
        }
        $last = count($run) - 1;
        if ($last >= 0 && is_string($run[$last])) {
            $run[$last] = preg_replace('/\n\s*$/', '', $run[$last]);
        }
        $inner = $this->renderInline($run);
        if (trim($inner) === '') {
            return '';
        }
        $inner = trim($inner, "\n");
        return $paragraph ? "<p>$inner</p>\n" : $inner;
    }

    private function renderInline(array $children): string
    {
        $html = '';
        foreach ($children as $child) {
            if (is_string($child)) {
                $html .= str_replace("\n", "<br />\n", $this->escape($child));
            } else {
                $html .= $this->renderNode($child);
            }
        }
        return $html;
    }

    private function renderNode(BBNode $node): string
    {
        if ($this->isBlock($node)) {
            // A block that ended up inside inline text (only through a list item).
            return $this->renderBlock($node);
        }
        $inner = $this->renderInline($node->children);
        switch ($node->tag) {
        case 'b':
            return "<strong>$inner</strong>";
        case 'i':
            return "<em>$inner</em>";
        case 'u':
            return "<span style=\"text-decoration: underline;\">$inner</span>";
        case 's':
            return "<del>$inner</del>";
        case 'color':
            return '<span style="color: ' . $this->escape(trim($node->argument)) . ";\">$inner</span>";
        case 'size':
            return '<span style="font-size: ' . $this->fontSize($node->argument) . ";\">$inner</span>";
        case 'url':
            return $this->renderLink($node, $inner);
        case 'img':
            return $this->renderImage($node);
        }
        return $inner;
    }

    private function renderLink(BBNode $node, string $inner): string
    {
        if ($node->argument !== null) {
            return '<a href="' . $this->escape(trim($node->argument)) . "\">$inner</a>";
        }
        $url = trim($this->plainText($node));
        if ($url === '' || !$this->safeUrl($url) || str_contains($url, "\n")) {
            return $this->escape($node->source) . $inner . $this->escape('[/url]');
        }
        return '<a href="' . $this->escape($url) . "\">$inner</a>";
    }

    private function plainText(BBNode $node): string
    {
        $text = '';
        foreach ($node->children as $child) {
            $text .= is_string($child) ? $child : $this->plainText($child);
        }
        return $text;
    }

    private function renderImage(BBNode $node): string
    {
        $path = $node->children[0];
        $attributes = 'src="' . $this->escape(str_replace(' ', '%20', $path)) . '" alt="'
            . $this->escape(basename($path)) . '"';
        if ($node->argument !== null && preg_match('/^\s*(\d{1,4})\s*x\s*(\d{1,4})\s*$/i',
                                                   $node->argument, $m)) {
            $attributes .= ' width="' . $m[1] . '" height="' . $m[2] . '"';
        }
        return "<img $attributes />";
    }

    private function renderBlock(BBNode $node): string
    {
        switch ($node->tag) {
        case 'code':
            $code = preg_replace('/^[ \t]*\n|\n[ \t]*$/', '', $node->children[0]);
            return '<pre><code>' . $this->escape($code) . "</code></pre>\n";
        case 'quote':
            $html = "<blockquote>\n";
            if ($node->argument !== null && trim($node->argument) !== '') {
                $name = trim(trim($node->argument), '"\'');
                $html .= '<p><cite>' . $this->escape($name) . "</cite></p>\n";
            }
            $body = $this->renderFlow($node->children, true);
            return $html . $body . "</blockquote>\n";
        case 'list':
            return $this->renderList($node);
        }
        return '';
    }

    private function renderList(BBNode $node): string
    {
        $type = $node->argument === null ? null : trim($node->argument);
        $open = '<ul>';
        $close = '</ul>';
        if ($type !== null) {
            $styles = ['a' => 'lower-alpha', 'A' => 'upper-alpha', 'i' => 'lower-roman',
                       'I' => 'upper-roman'];
            $open = isset($styles[$type]) ? '<ol style="list-style-type: ' . $styles[$type] . ';">'
                                          : '<ol>';
            $close = '</ol>';
        }
        $items = '';
        foreach ($node->children as $child) {
            if ($child instanceof BBNode && $child->tag === '*') {
                $items .= '<li>' . $this->renderFlow($child->children, false) . "</li>\n";
            } elseif (is_string($child) ? trim($child) !== '' : true) {
                // Text before the first [*] is kept as an item of its own.
                $items .= '<li>' . $this->renderFlow([$child], false) . "</li>\n";
            }
        }
        if ($items === '') {
            return '';
        }
        return "$open\n$items$close\n";
    }
}

function vellox_bbcode_convert(string $source): string
{
    return (new BBCodeConverter())->convert($source);
}
