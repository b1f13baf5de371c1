-- Links between the pages: the installed pages are HTML files in one folder.
function Link(link)
  link.target = link.target:gsub("^([%w-]+)%.md", "%1.html")
  return link
end
