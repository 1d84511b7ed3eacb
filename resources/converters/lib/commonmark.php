<?php
// Shared set-up of league/commonmark for the Markdown and Smark filters. Debian installs the
// library with its own autoloader under /usr/share/php, which is on PHP's include path.

use League\CommonMark\Environment\Environment;
use League\CommonMark\Event\DocumentParsedEvent;
use League\CommonMark\Extension\Autolink\AutolinkExtension;
use League\CommonMark\Extension\CommonMark\CommonMarkCoreExtension;
use League\CommonMark\Extension\CommonMark\Node\Inline\Image;
use League\CommonMark\Extension\CommonMark\Node\Inline\Link;
use League\CommonMark\Extension\Footnote\FootnoteExtension;
use League\CommonMark\Extension\SmartPunct\SmartPunctExtension;
use League\CommonMark\Extension\Strikethrough\StrikethroughExtension;
use League\CommonMark\Extension\Table\TableExtension;
use League\CommonMark\Extension\TaskList\TaskListExtension;
use League\CommonMark\MarkdownConverter;
use League\CommonMark\Node\Block\Paragraph;
use League\CommonMark\Node\Inline\Newline;
use League\CommonMark\Node\Inline\Text;

if ((@include_once 'League/CommonMark/autoload.php') === false) {
    fwrite(STDERR, "Vellox converter: league/commonmark is missing (Debian package php-league-commonmark)\n");
    exit(1);
}

// A line that holds nothing but the path or address of a picture.
const VELLOX_IMAGE_LINE = '#^(?:[a-z][a-z0-9+.-]*://\S+|[^\s<>"\[\]()*`]+|(?:/|\./|\.\./|~/)[^<>"\[\]*`]+)'
    . '\.(?:png|jpe?g|gif|svg|webp)$#i';

function vellox_commonmark_environment(bool $smark): Environment
{
    $config = [
        'html_input' => 'allow',
        'allow_unsafe_links' => true,
        // Colons in ids are invalid in EPUB books built from these pages.
        'footnote' => [
            'backref_class' => 'footnote-backref',
            'container_add_hr' => true,
            'container_class' => 'footnotes',
            'ref_class' => 'footnote-ref',
            'ref_id_prefix' => 'fnref-',
            'footnote_class' => 'footnote',
            'footnote_id_prefix' => 'fn-',
        ],
    ];
    $environment = new Environment($config);
    $environment->addExtension(new CommonMarkCoreExtension());
    $environment->addExtension(new AutolinkExtension());
    $environment->addExtension(new StrikethroughExtension());
    $environment->addExtension(new TableExtension());
    $environment->addExtension(new TaskListExtension());
    $environment->addExtension(new FootnoteExtension());
    if ($smark) {
        $environment->addExtension(new SmartPunctExtension());
        $environment->addEventListener(DocumentParsedEvent::class, 'vellox_smark_image_lines');
    }
    return $environment;
}

// The literal text of an inline node when it is plain text or a bare (auto-linked) address.
function vellox_plain_line_text($node): ?string
{
    if ($node instanceof Text) {
        return $node->getLiteral();
    }
    if ($node instanceof Link && $node->firstChild() instanceof Text
        && $node->firstChild() === $node->lastChild()) {
        $label = $node->firstChild()->getLiteral();
        $url = $node->getUrl();
        if ($url === $label || $url === 'http://' . $label) {
            return $url;
        }
    }
    return null;
}

// Smark shows a line that is only an image path as that image.
function vellox_smark_image_lines(DocumentParsedEvent $event): void
{
    $walker = $event->getDocument()->walker();
    $paragraphs = [];
    while ($step = $walker->next()) {
        if ($step->isEntering() && $step->getNode() instanceof Paragraph) {
            $paragraphs[] = $step->getNode();
        }
    }
    foreach ($paragraphs as $paragraph) {
        $line = [];
        $node = $paragraph->firstChild();
        while (true) {
            if ($node === null || $node instanceof Newline) {
                if (count($line) === 1) {
                    vellox_replace_with_image($line[0]);
                }
                if ($node === null) {
                    break;
                }
                $line = [];
            } else {
                $line[] = $node;
            }
            $node = $node->next();
        }
    }
}

function vellox_replace_with_image($node): void
{
    $text = vellox_plain_line_text($node);
    if ($text === null) {
        return;
    }
    $path = trim($text);
    if (!preg_match(VELLOX_IMAGE_LINE, $path)) {
        return;
    }
    if (str_starts_with($path, '~/') && getenv('HOME')) {
        $path = 'file://' . getenv('HOME') . substr($path, 1);
    } elseif (str_starts_with($path, '/')) {
        $path = 'file://' . $path;
    }
    $image = new Image(str_replace(' ', '%20', $path), null, null);
    $image->appendChild(new Text(basename($text)));
    $node->replaceWith($image);
}

// Building the environment costs more than converting a typical entry, so a long-lived
// converter builds each flavour once. The converter keeps nothing of one document for the next.
function vellox_commonmark_converter(bool $smark): MarkdownConverter
{
    static $converters = [];
    return $converters[$smark] ??= new MarkdownConverter(vellox_commonmark_environment($smark));
}

function vellox_commonmark_convert(string $source, bool $smark): string
{
    try {
        return vellox_commonmark_converter($smark)->convert($source)->getContent();
    } catch (Throwable $error) {
        // Never hide the writer's text behind a parser failure: show it as it stands.
        fwrite(STDERR, 'Vellox converter: ' . $error->getMessage() . "\n");
        return '<pre>' . htmlspecialchars($source, ENT_QUOTES | ENT_SUBSTITUTE, 'UTF-8') . "</pre>\n";
    }
}
