-- The pages lie beside each other as HTML.
function Link(link)
  link.target = link.target:gsub("^([%w-]+)%.md", "%1.html")
  return link
end
