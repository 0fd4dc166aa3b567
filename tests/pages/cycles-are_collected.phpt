--TEST--
Cycles: a view and a page whose functions lead back to them are collected, and those that are in use are not
--FILE--
<?php
require __DIR__ . '/shop.inc';

class Controller
{
    public Dralo\DbView $view;
    public Dralo\Page $page;
    public string $sent = '';

    public function __construct(string $connection)
    {
        $this->view = new Dralo\DbView();
        $this->view->ConnectionString = $connection;
        $this->view->sql = 'SELECT Name FROM Customers';
        $this->page = new Dralo\Page('/customers');
        $this->view->OnStartPage($this->page);
    }

    public function token(?string $token): string|bool
    {
        gc_collect_cycles();
        return $token === null ? 'own' : $token === 'own';
    }

    public function send(string $piece): void
    {
        gc_collect_cycles();
        $this->sent .= $piece;
    }
}

$connection = shop();
$ways = [
    'nothing' => fn(Controller $of) => null,
    'OnSave' => fn(Controller $of) => $of->view->OnSave = fn() => $of,
    'OnSaved' => fn(Controller $of) => $of->view->OnSaved = [$of, 'token'],
    'OnDelete' => fn(Controller $of) => $of->view->OnDelete = $of->token(...),
    'TokenCallback' => fn(Controller $of) => $of->view->TokenCallback = $of->token(...),
    'sendTo' => fn(Controller $of) => $of->page->sendTo($of->send(...)),
    'twice' => fn(Controller $of) => $of->view->OnSave = $of->view->OnDelete = $of->token(...),
];
foreach ($ways as $name => $way) {
    $controller = new Controller($connection);
    $way($controller);
    gc_collect_cycles();
    $controller->view->WriteHtmlTable();
    $written = $controller->sent . $controller->page->body();
    $view = WeakReference::create($controller->view);
    $page = WeakReference::create($controller->page);
    unset($controller);
    gc_collect_cycles();
    echo $name, ': ', substr_count($written, '<td id'), ' cells, ', json_encode([$view->get(), $page->get()]), "\n";
}

// A list of a property's columns stands for the view too.
$controller = new Controller($connection);
$controller->view->OnSave = fn() => $controller;
$columns = $controller->view->GridColAttributes;
$columns[1] = 'align="right"';
unset($controller);
gc_collect_cycles();
echo $columns[1], ' ', shop_is_free() ? 'free' : 'in use', "\n";
?>
--EXPECT--
nothing: 6 cells, [null,null]
OnSave: 6 cells, [null,null]
OnSaved: 6 cells, [null,null]
OnDelete: 6 cells, [null,null]
TokenCallback: 6 cells, [null,null]
sendTo: 6 cells, [null,null]
twice: 6 cells, [null,null]
align="right" free
