<!DOCTYPE html>
<html>
<body class="main">
<?php
declare(strict_types=1);
namespace App\Models;

use App\Contracts\Named;

# An old style comment, isn't it?
/**
 * A user with a "name".
 */
#[Entity(table: 'users')]
final class User extends Model implements Named
{
    public const LIMIT = 0x1F, RATE = 1_000.5e3;
    private static ?array $cache = null;

    public function __construct(private readonly string $name, protected int|float $age = 18) {}

    public function greet(?self $other): string // no comment in 'http://x'
    {
        $link = 'http://example.org/'; $more = "It's {$this->name}\n";
        if ($other instanceof User && !isset($other->name)) {
            throw new \InvalidArgumentException("bad");
        } elseif (empty($link) or $link === null) {
            return '';
        }
        foreach (self::$cache ?? [] as $key => $value) { echo $key, PHP_EOL; continue; }
        $result = match (true) { $this->age < 18 => 'young', default => 'old' };
        $double = fn (int $x): int => $x * 2;
        /* done */ return $result . <<<TEXT
        here
        TEXT;
    }
}
?>
<p title="x"><?= htmlspecialchars($user->greet(null)) ?></p>
</body>
</html>
