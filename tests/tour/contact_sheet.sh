# A page of the tour's pictures, with the pictures inside it. Sourced, not run; needs $target, where they are.

# What the page shows: picture and caption.
shown_pictures=(
    'door|Τα βιβλία του υπολογιστή'
    'sign-in|Η είσοδος'
    'day|Η ημέρα, και η περιγραφή που προτείνεται'
    'search|Κάθε κίνηση, όσο γράφετε'
    'history|Το ιστορικό: ποιος, πότε, τι'
    'picture|Η εικόνα του βιβλίου'
    'card|Η καρτέλα ενός κωδικού'
    'codes|Οι κωδικοί και οι ομάδες τους'
    'printing|Οι εκτυπώσεις'
    'preview|Η προεπισκόπηση'
    'check|Ο έλεγχος του βιβλίου'
    'help|Οι οδηγίες, στο κεφάλαιο της σελίδας'
)

sheet_head() {
    cat <<'HTML'
<!DOCTYPE html>
<html lang="el">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Lorvan σε δώδεκα εικόνες</title>
<style>
  :root { color-scheme: light dark; --ground: #eef2f6; --card: #fff; --line: #cfd8e1; --text: #1b2733; --muted: #5a6b7b; --accent: #1e5f94 }
  @media (prefers-color-scheme: dark) { :root { --ground: #14191f; --card: #1d242c; --line: #33404d; --text: #e4eaf0; --muted: #98a8b7; --accent: #7db4e2 } }
  body { margin: 0 auto; max-width: 92rem; padding: 2rem 1.5rem 3rem; background: var(--ground); color: var(--text); font: 1rem/1.5 "Noto Sans", "DejaVu Sans", sans-serif }
  h1 { margin: 0; font-size: 1.7rem } h1 + p { margin: .3rem 0 1.8rem; color: var(--muted) }
  main { display: grid; gap: 1.2rem; grid-template-columns: repeat(auto-fill, minmax(min(26rem, 100%), 1fr)) }
  figure { margin: 0; background: var(--card); border: 1px solid var(--line); border-radius: .6rem; overflow: hidden }
  label { display: flex; height: 17rem; padding: .8rem; align-items: center; justify-content: center; cursor: zoom-in }
  img { max-width: 100%; max-height: 100%; border: 1px solid var(--line); border-radius: .2rem }
  input { position: absolute; opacity: 0 } label:focus-within { outline: 3px solid var(--accent); outline-offset: -3px }
  input:checked + img { position: fixed; inset: 0; margin: auto; z-index: 1; max-width: 98vw; max-height: 98vh; cursor: zoom-out; box-shadow: 0 0 0 100vmax #000b }
  figcaption { padding: .7rem .9rem; border-top: 1px solid var(--line) } b { color: var(--accent); margin-right: .4rem }
</style>
HTML
}

write_contact_sheet() {
    local entry name caption number=0
    {
        sheet_head
        echo '<h1>Lorvan σε δώδεκα εικόνες</h1>'
        echo "<p>Από τον γύρο της $(date '+%-d/%-m/%Y %H:%M'), με το δοκιμαστικό βιβλίο. Ένα κλικ μεγαλώνει την εικόνα.</p>"
        echo '<main>'
        for entry in "${shown_pictures[@]}"; do
            name=${entry%%|*} caption=${entry#*|}
            [[ -s $target/$name.png ]] || fail "λείπει η εικόνα $name.png"
            printf '<figure><label><input type="checkbox" aria-label="Μεγέθυνση: %s"><img alt="%s" src="data:image/png;base64,' \
                "$caption" "$caption"
            base64 --wrap=0 "$target/$name.png"
            printf '"></label><figcaption><b>%d</b>%s</figcaption></figure>\n' $((++number)) "$caption"
        done
        echo '</main>'
    } >"$target/index.html"
    say "οι $number εικόνες μαζί: index.html"
}
